"""Judges pages that play films in a headless browser: judge.py PAGE PICTURES [FOLDER]

PICTURES has a line for each picture of the film: a moment at which it is shown, in milliseconds, and the FNV-1a hash of
its dots. With FOLDER, pictures of the page go there.
"""
import sys

from browser import Page

# Each text that can be seen, with the contrast between it and what it is drawn on.
CONTRASTS = '''(() => {
    const part = value => (value /= 255) <= 0.04045 ? value / 12.92 : ((value + 0.055) / 1.055) ** 2.4;
    const numbers = color => color.match(/[\\d.]+/g).map(Number);
    const light = ([r, g, b]) => 0.2126 * part(r) + 0.7152 * part(g) + 0.0722 * part(b);
    const ground = element => {
        const color = numbers(getComputedStyle(element).backgroundColor);
        return color.length === 4 && color[3] === 0 ? ground(element.parentElement) : color;
    };
    return [...document.body.querySelectorAll('*')]
        .filter(it => it.checkVisibility() && [...it.childNodes].some(child => child.nodeType === 3 && child.data.trim()))
        .map(it => {
            const [one, other] = [light(numbers(getComputedStyle(it).color)), light(ground(it))];
            return [(Math.max(one, other) + 0.05) / (Math.min(one, other) + 0.05), it.textContent];
        });
})()'''

# The hashes of what the canvas of the dots shows at moments.
HASHES = '''moments => moments.map(moment => {
    const slider = document.getElementById('time'), dots = document.getElementById('dots');
    slider.value = moment;
    slider.dispatchEvent(new Event('input'));
    const pixels = dots.getContext('2d').getImageData(0, 0, dots.width, dots.height).data;
    let hash = 0x811c9dc5;
    for (let i = 0; i < pixels.length; ++i)
        if (i % 4 < 3)
            hash = Math.imul(hash ^ pixels[i], 0x01000193) >>> 0;
    return hash;
})'''

TIME = 'Number(document.getElementById("time").value)'
NUMBER = 'document.querySelector(".current .number").textContent'
IS_PLAYING = 'document.body.classList.contains("playing")'


def judge_playing(page):
    page.wait(TIME + ' > 200')
    assert page.value(IS_PLAYING), 'starts by itself'
    page.press(' ')
    assert not page.value(IS_PLAYING)
    time = page.value(TIME)
    page.value('new Promise(done => setTimeout(done, 200))')
    assert page.value(TIME) == time, 'pauses'
    page.press(' ')
    page.wait(f'{TIME} > {time}')
    page.press('End')
    page.wait('!' + IS_PLAYING)
    page.press(' ')
    page.wait(f'{TIME} > 0 && {TIME} < 5000')
    page.press(' ')


def judge_keys(page, steps):
    page.press('Home')
    assert page.value(TIME) == 0
    page.press('ArrowRight', shift=True)
    assert page.value(TIME) > 0, 'one picture on'
    page.press('ArrowLeft', shift=True)
    assert page.value(TIME) == 0
    end = page.value('Number(document.getElementById("time").max)')
    starts = sorted({start for start, _, _ in steps if start < end})  # frames that take no time are passed over
    for start in starts[1:] + [end]:
        page.press('ArrowRight')
        assert page.value(TIME) == start
    for start in reversed(starts):
        page.press('ArrowLeft')
        assert page.value(TIME) == start


def judge_list(page, film):
    frames = film['frames']
    index = film['steps'][-1][1]
    page.value(f'document.querySelectorAll(".frame")[{index}].click()')
    assert page.value(NUMBER) == str(frames[index]['number'])
    names = page.value('[...document.querySelectorAll(".name")].map(name => name.textContent)')
    assert names == [frame['name'] or f'Frame {frame["number"]}' for frame in frames]
    findings = sum((frame['findings'] for frame in frames), film['findings'])
    shown = page.value('[...document.querySelectorAll(".findings li")].map(item => item.textContent)')
    assert shown == [f'{finding["severity"]}: {finding["text"]}' for finding in findings]
    page.wait(f'document.getElementById("announcement").textContent.startsWith("Frame {frames[index]["number"]}")')


def judge_access(page):
    nodes = page.call('Accessibility.getFullAXTree')['nodes']
    for node in nodes:
        if node.get('role', {}).get('value') in ('button', 'slider', 'checkbox', 'combobox', 'image', 'region'):
            assert node['name']['value'], f'a {node["role"]["value"]} without a name'
    assert page.value('document.getElementById("time").getAttribute("aria-valuetext")').startswith('0 s of ')
    order = []
    page.value('document.activeElement.blur()')
    for _ in range(10):
        page.press('Tab')
        order.append(page.value('document.activeElement.id'))
        assert page.value('getComputedStyle(document.activeElement).outlineStyle') != 'none', order
    assert order[:9] == ['time', 'frame-back', 'picture-back', 'play', 'picture-on', 'frame-on', 'speed', 'repeat', 'plain']
    for scheme in ('light', 'dark'):
        page.set_media(prefers_color_scheme=scheme)
        for contrast, text in page.value(CONTRASTS):
            assert contrast >= 4.5, f'{scheme}: {contrast:.2f} {text}'


def judge_dots(page, path):
    with open(path, encoding='ascii') as file:
        pictures = [[int(number) for number in line.split()] for line in file]
    moments = [moment for moment, _ in pictures]
    for order in (moments, moments[::-1], moments[::7] + moments[3::11]):  # on, back, and in jumps
        shown = page.value(f'({HASHES})({order})')
        wrong = [moment for moment, hash in zip(order, shown) if [moment, hash] not in pictures]
        assert not wrong, f'other dots than those of the film at {wrong[:10]} ms'
    return len(pictures)


def main(url, pictures, folder=None):
    page = Page(url, 1280, 800, prefers_reduced_motion='no-preference')
    film = page.value('JSON.parse(document.getElementById("film").textContent)')
    judge_playing(page)
    judge_keys(page, film['steps'])
    judge_list(page, film)
    page.press('Home')
    judge_access(page)
    count = judge_dots(page, pictures)
    assert not page.errors, page.errors
    page.close()
    phone = Page(url, 390, 844, 3, prefers_reduced_motion='reduce')
    assert not phone.value(IS_PLAYING), 'does not start by itself'
    assert phone.value('document.documentElement.scrollWidth') <= 390
    assert not phone.errors, phone.errors
    phone.close()
    if folder:
        save_pictures(url, film, folder)
    print(f'{url}: as it should be, with {count} pictures')


def save_pictures(url, film, folder):
    for name, size, scheme in (('light', (1280, 800), 'light'), ('dark', (1280, 800), 'dark'), ('phone', (390, 844, 3), 'dark')):
        page = Page(url, *size, prefers_reduced_motion='reduce', prefers_color_scheme=scheme)
        page.value(f'({HASHES})([{film["milliseconds"] * 0.4}])')
        page.save_picture(f'{folder}/{name}.png')
        page.close()


main(*sys.argv[1:])
