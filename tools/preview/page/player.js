// Plays the film that this page holds. Texts of the playfile may be anything, and only ever become text of elements.
'use strict';
(() => {

const element = id => document.getElementById(id);
const film = JSON.parse(element('film').textContent);
const wantsLessMotion = matchMedia('(prefers-reduced-motion: reduce)');

/* ---- Pictures: dots at any time, from the changes that tools/preview/FilmPictures.h describes ---- */

/** Unpacks base64 of zlib. */
async function unpacked(text) {
    const characters = atob(text);
    const packed = new Uint8Array(characters.length);
    for (let i = 0; i < packed.length; ++i)
        packed[i] = characters.charCodeAt(i);
    const stream = new Blob([packed]).stream().pipeThrough(new DecompressionStream('deflate'));
    return new Uint8Array(await new Response(stream).arrayBuffer());
}

/** Takes numbers from bytes, seven bits from each, the lowest first. */
class Reader {
    constructor(bytes, at = 0) {
        this.bytes = bytes;
        this.at = at;
    }
    number() {
        let number = 0, scale = 1, byte;
        do {
            byte = this.bytes[this.at++];
            number += (byte & 127) * scale;
            scale *= 128;
        } while (byte > 127);
        return number;
    }
}

const DARK = 0xff000000; // a pixel of ImageData as one number: its alpha, blue, green and red

class Pictures {
    constructor(bytes, width, height) {
        this.bytes = bytes;
        this.image = new ImageData(width, height);
        this.dots = new Uint32Array(this.image.data.buffer);
        this.starts = []; // milliseconds
        this.places = []; // where the records of the pictures begin and end in the bytes
        this.ends = [];
        this.shown = -1;
        this.colors = [];
        this.findPictures();
    }

    findPictures() {
        const reader = new Reader(this.bytes);
        for (let start = 0; reader.at < this.bytes.length;) {
            start += reader.number();
            const size = reader.number();
            this.starts.push(start);
            this.places.push(reader.at);
            this.ends.push(reader.at += size);
        }
    }

    /** The index of the picture at a time. */
    indexAt(milliseconds) {
        return Math.max(lastNotAfter(this.starts, milliseconds, start => start), 0);
    }

    /** Brings the image to a picture. Returns whether it was another one. */
    show(index) {
        if (index === this.shown)
            return false;
        let from = index;
        while (from !== this.shown + 1 && this.bytes[this.places[from]] !== 1)
            --from; // the picture before, or one that needs none
        for (; from <= index; ++from)
            this.apply(from);
        this.shown = index;
        return true;
    }

    apply(index) {
        const reader = new Reader(this.bytes, this.places[index]);
        if (reader.number() === 1) {
            this.dots.fill(DARK);
            this.colors = [DARK];
        }
        for (let dot = 0; reader.at < this.ends[index];) {
            dot += reader.number();
            const head = reader.number();
            const stop = dot + (head >> 1);
            if (head & 1)
                for (let each = dot; each < stop; ++each)
                    this.dots[each] = this.color(reader);
            else
                this.dots.fill(this.color(reader), dot, stop);
            dot = stop;
        }
    }

    color(reader) {
        const number = reader.number();
        if (number === this.colors.length) {
            const [red, green, blue] = this.bytes.subarray(reader.at, reader.at += 3);
            this.colors.push((DARK | blue << 16 | green << 8 | red) >>> 0);
        }
        return this.colors[number];
    }
}

/** Index of the last element whose value is not after another one; -1 if there is none. */
function lastNotAfter(sorted, value, valueOf) {
    let low = 0, high = sorted.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (valueOf(sorted[middle]) <= value)
            low = middle + 1;
        else
            high = middle;
    }
    return low - 1;
}

/* ---- The sign: plain dots on one canvas, and drawn from them as LEDs on another ---- */

const MOST_PIXELS = 1 << 24; // of a canvas, on phones
const LARGEST_LED = 24;
const SMALLEST_LED = 3; // smaller ones have no gaps between them
const DARK_LED = 'rgb(40 39 38)';
const GAP = 'rgb(14 14 16 / 0.86)'; // what shines through is the light of the LED on the board
const GLOW = 0.3;

class Sign {
    constructor(pictures) {
        this.pictures = pictures;
        this.columns = film.width;
        this.rows = film.height;
        this.dots = element('dots');
        this.dots.width = this.columns;
        this.dots.height = this.rows;
        this.dotContext = this.dots.getContext('2d');
        this.leds = element('leds');
        this.ledContext = this.leds.getContext('2d');
        this.isPlain = film.isPlain;
        this.fit();
        new ResizeObserver(() => this.fit()).observe(element('stage'));
    }

    show(index) {
        if (!this.pictures.show(index))
            return;
        this.dotContext.putImageData(this.pictures.image, 0, 0);
        this.drawLeds();
    }

    setPlain(isPlain) {
        this.isPlain = isPlain;
        this.fit();
    }

    /** Makes the dots as large as the page has room for: whole pixels of the screen, unless these are too few. */
    fit() {
        const room = element('sign').clientWidth, most = innerHeight * 0.6;
        const pixel = 1 / devicePixelRatio; // in the units of the page
        let scale = Math.min(Math.floor(room / pixel / this.columns), Math.floor(most / pixel / this.rows), LARGEST_LED);
        while (scale > 1 && this.columns * this.rows * scale * scale > MOST_PIXELS)
            --scale;
        this.scale = scale;
        const showsLeds = !this.isPlain && scale >= SMALLEST_LED;
        this.leds.hidden = !showsLeds;
        this.dots.hidden = showsLeds;
        const widest = Math.min(room, most * this.columns / this.rows);
        const width = scale >= SMALLEST_LED ? this.columns * scale * pixel : widest;
        for (const canvas of [this.dots, this.leds]) {
            canvas.style.width = `${width}px`;
            canvas.style.height = `${width * this.rows / this.columns}px`;
        }
        if (!showsLeds)
            return;
        this.leds.width = this.columns * scale;
        this.leds.height = this.rows * scale;
        this.gaps = this.ledContext.createPattern(this.makeGap(), 'repeat');
        this.drawLeds();
    }

    /** What surrounds an LED: a square with a round hole. */
    makeGap() {
        const tile = document.createElement('canvas');
        tile.width = tile.height = this.scale;
        const context = tile.getContext('2d');
        context.fillStyle = GAP;
        context.fillRect(0, 0, this.scale, this.scale);
        context.globalCompositeOperation = 'destination-out';
        context.fillStyle = 'black';
        context.beginPath();
        context.arc(this.scale / 2, this.scale / 2, this.scale * (this.scale < 5 ? 0.54 : 0.44), 0, 2 * Math.PI);
        context.fill();
        return tile;
    }

    /** All LEDs in four strokes, however many there are: dark ones, lit ones, the gaps, and the glow. */
    drawLeds() {
        if (this.leds.hidden)
            return;
        const context = this.ledContext, {width, height} = this.leds;
        context.globalCompositeOperation = 'source-over';
        context.fillStyle = DARK_LED;
        context.fillRect(0, 0, width, height);
        context.globalCompositeOperation = 'lighten';
        context.imageSmoothingEnabled = false;
        context.drawImage(this.dots, 0, 0, width, height);
        context.globalCompositeOperation = 'source-over';
        context.fillStyle = this.gaps;
        context.fillRect(0, 0, width, height);
        context.globalCompositeOperation = 'lighten'; // which leaves lit LEDs as they are
        context.globalAlpha = GLOW;
        context.imageSmoothingEnabled = true;
        context.drawImage(this.dots, 0, 0, width, height);
        context.globalAlpha = 1;
    }
}

/* ---- Texts ---- */

const counted = (count, what) => `${count} ${what}${count === 1 ? '' : 's'}`;

/** "2 min 5 s"; below a minute with tenths. */
function duration(milliseconds) {
    const tenths = Math.round(milliseconds / 100);
    if (tenths < 600)
        return `${tenths / 10} s`;
    const seconds = Math.round(milliseconds / 1000), minutes = Math.floor(seconds / 60);
    const rest = [[Math.floor(minutes / 60), 'h'], [minutes % 60, 'min'], [seconds % 60, 's']];
    return rest.filter(([number]) => number > 0).map(part => part.join(' ')).join(' ');
}

/** "2:05.3" */
function clockText(milliseconds) {
    const tenths = Math.floor(milliseconds / 100), seconds = Math.floor(tenths / 10), minutes = Math.floor(seconds / 60);
    const twoDigits = number => String(number).padStart(2, '0');
    const start = minutes < 60 ? `${minutes}` : `${Math.floor(minutes / 60)}:${twoDigits(minutes % 60)}`;
    return `${start}:${twoDigits(seconds % 60)}.${tenths % 10}`;
}

const titleOf = frame => frame.name === '' ? `Frame ${frame.number}` : `${frame.number}  ${frame.name}`;

function spokenTextOf(frame) {
    const name = frame.name === '' ? '' : `, ${frame.name}`;
    const texts = frame.texts.length === 0 ? '' : `: ${frame.texts.join('; ')}`;
    const findings = frame.findings.length === 0 ? '' : `. ${counted(frame.findings.length, 'finding')}`;
    return `Frame ${frame.number}${name}${texts}${findings}`;
}

/** A new element of a class with a text. */
function made(tag, className, text) {
    const result = document.createElement(tag);
    result.className = className;
    result.textContent = text;
    return result;
}

/* ---- The list of frames ---- */

function addFindings(list, findings) {
    for (const {severity, text} of findings) {
        const item = made('li', severity, '');
        item.append(made('span', 'severity', severity), `: ${text}`);
        list.append(item);
    }
}

function effectsText(frame) {
    const parts = [];
    if (frame.appears !== '')
        parts.push(`in: ${frame.appears}`);
    if (frame.disappears !== '')
        parts.push(`out: ${frame.disappears}`);
    return parts.join(', ');
}

class FrameList {
    /** `onChosen(step)` is called when a frame is chosen, with the first of its steps. */
    constructor(onChosen) {
        const firstSteps = new Map();
        film.steps.forEach(([, index], step) => firstSteps.has(index) || firstSteps.set(index, step));
        this.items = film.frames.map((frame, index) => this.makeItem(frame, firstSteps.get(index), onChosen));
        element('frames').append(...this.items);
        addFindings(element('playfile-findings'), film.findings);
        element('playfile-findings').hidden = film.findings.length === 0;
        this.current = -1;
    }

    /** `step` is undefined for a frame that is not shown. */
    makeItem(frame, step, onChosen) {
        const button = made('button', 'frame', '');
        button.type = 'button';
        button.disabled = step === undefined;
        button.addEventListener('click', () => onChosen(step));
        const length = step === undefined ? 'not shown' : duration(frame.milliseconds);
        button.append(made('span', 'number', frame.number), made('span', 'name', frame.name || `Frame ${frame.number}`),
            made('span', 'seconds', length));
        button.append(made('span', 'about', [frame.kind, effectsText(frame)].filter(text => text !== '').join(' \u00b7 ')));
        const item = document.createElement('li');
        item.append(button);
        if (frame.findings.length > 0) {
            const findings = made('ul', 'findings', '');
            addFindings(findings, frame.findings);
            item.append(findings);
        }
        return item;
    }

    setCurrent(index) {
        if (index === this.current)
            return;
        this.items[this.current]?.classList.remove('current');
        this.items[this.current]?.firstChild.removeAttribute('aria-current');
        this.current = index;
        const item = this.items[index];
        item.classList.add('current');
        item.firstChild.setAttribute('aria-current', 'true');
        this.bringIntoSight(item);
    }

    /** Scrolls the list, and never the page. */
    bringIntoSight(item) {
        const list = element('frames');
        const above = list.getBoundingClientRect().top - item.getBoundingClientRect().top;
        const below = item.getBoundingClientRect().bottom - list.getBoundingClientRect().bottom;
        if (above > 0)
            list.scrollTop -= above;
        else if (below > 0)
            list.scrollTop += below;
    }
}

/* ---- The time line ---- */

const NARROWEST_MARK = 0.25;

class TimeLine {
    /** `onTime(milliseconds)` is called when a time is chosen, and `onStep(step)` when a step is. */
    constructor(onTime, onStep) {
        this.slider = element('time');
        this.slider.max = film.milliseconds;
        this.slider.addEventListener('input', () => onTime(Number(this.slider.value)));
        this.marks = element('marks');
        this.marks.addEventListener('click', event => {
            const milliseconds = event.offsetX / this.marks.clientWidth * film.milliseconds;
            onStep(stepAt(milliseconds));
        });
        this.current = 0;
        new ResizeObserver(() => this.draw()).observe(this.marks);
        matchMedia('(prefers-color-scheme: dark)').addEventListener('change', () => this.draw());
    }

    show(milliseconds, step, spoken) {
        this.slider.value = milliseconds;
        element('clock').textContent = `${clockText(milliseconds)} / ${clockText(film.milliseconds)}`;
        const text = `${duration(Math.floor(milliseconds / 1000) * 1000)} of ${duration(film.milliseconds)}, ${spoken}`;
        if (text !== this.text) // which changes once a second
            this.slider.setAttribute('aria-valuetext', text);
        this.text = text;
        if (step === this.current)
            return;
        this.current = step;
        this.draw();
    }

    /** A field for each step, with the number of its frame where there is room for it. */
    draw() {
        const {clientWidth: width, clientHeight: height} = this.marks;
        this.marks.width = Math.round(width * devicePixelRatio);
        this.marks.height = Math.round(height * devicePixelRatio);
        const context = this.marks.getContext('2d');
        context.scale(devicePixelRatio, devicePixelRatio);
        const style = getComputedStyle(document.body);
        const color = name => style.getPropertyValue(name);
        context.font = `600 12px ${style.fontFamily}`;
        context.textAlign = 'center';
        context.textBaseline = 'middle';
        const colors = [color('--mark'), color('--mark-other')];
        const place = milliseconds => milliseconds / Math.max(film.milliseconds, 1) * width;
        film.steps.forEach(([start, frame], index) => {
            const isCurrent = index === this.current;
            const left = place(start), right = place(endOf(index));
            if (right - left < NARROWEST_MARK && !isCurrent)
                return;
            context.fillStyle = isCurrent ? color('--accent') : colors[index % 2];
            context.fillRect(left, 0, Math.max(right - left, NARROWEST_MARK), height);
            const number = String(film.frames[frame].number);
            context.fillStyle = color(isCurrent ? '--on-accent' : '--on-mark');
            if (context.measureText(number).width + 4 < right - left)
                context.fillText(number, (left + right) / 2, height / 2 + 1);
        });
    }
}

/* ---- Steps: a frame that is shown once, as [milliseconds of its start, index of the frame, round of its loop] ---- */

const startOf = step => film.steps[step][0];
const endOf = step => step + 1 < film.steps.length ? startOf(step + 1) : film.milliseconds;
const stepAt = milliseconds => Math.max(lastNotAfter(film.steps, milliseconds, ([start]) => start), 0);

/* ---- The player ---- */

const QUIET_MILLISECONDS = 400; // A frame that goes sooner is not announced.
const BACK_TO_START_MILLISECONDS = 1000; // While playing, "previous" this soon after a start means the frame before.

class Player {
    constructor(pictures) {
        this.sign = new Sign(pictures);
        this.pictures = pictures;
        this.list = new FrameList(step => this.goTo(startOf(step)));
        this.line = new TimeLine(milliseconds => this.goTo(milliseconds), step => this.goTo(startOf(step)));
        this.time = 0;
        this.step = -1;
        this.isPlaying = false;
        this.connectControls();
        addEventListener('keydown', event => this.onKey(event));
        document.addEventListener('visibilitychange', () => this.lastTick = performance.now());
        this.goTo(0);
    }

    connectControls() {
        const actions = {
            'play': () => this.setPlaying(!this.isPlaying),
            'frame-back': () => this.stepFrames(-1),
            'frame-on': () => this.stepFrames(1),
            'picture-back': () => this.stepPictures(-1),
            'picture-on': () => this.stepPictures(1),
        };
        for (const [id, action] of Object.entries(actions)) {
            element(id).addEventListener('click', action);
            element(id).disabled = false;
        }
        element('time').disabled = false;
        element('plain').checked = film.isPlain;
        element('plain').addEventListener('change', event => this.sign.setPlain(event.target.checked));
    }

    /** Shows the moment. At its end, the film stops. */
    goTo(milliseconds) {
        this.time = Math.min(Math.max(milliseconds, 0), film.milliseconds);
        this.sign.show(this.pictures.indexAt(this.time));
        const step = stepAt(this.time);
        const [, index, round] = film.steps[step];
        const frame = film.frames[index];
        this.line.show(this.time, step, frame.name === '' ? `frame ${frame.number}` : `frame ${frame.number}, ${frame.name}`);
        if (step === this.step)
            return;
        this.step = step;
        this.list.setCurrent(index);
        element('now-name').textContent = titleOf(frame) + (round > 1 ? ` (round ${round})` : '');
        element('now-texts').textContent = frame.texts.join(' / ');
        clearTimeout(this.announcement);
        this.announcement = setTimeout(() => element('announcement').textContent = spokenTextOf(frame), QUIET_MILLISECONDS);
    }

    setPlaying(isPlaying) {
        if (isPlaying && this.time >= film.milliseconds)
            this.goTo(0);
        this.isPlaying = isPlaying;
        document.body.classList.toggle('playing', isPlaying);
        const play = element('play');
        play.title = isPlaying ? 'Pause' : 'Play';
        play.setAttribute('aria-label', play.title);
        if (!isPlaying)
            return;
        this.lastTick = performance.now();
        requestAnimationFrame(now => this.tick(now));
    }

    tick(now) {
        if (!this.isPlaying)
            return;
        const passed = Math.max(now - this.lastTick, 0) * Number(element('speed').value);
        this.lastTick = now;
        this.goTo(this.time + passed);
        if (this.time < film.milliseconds) {
            requestAnimationFrame(next => this.tick(next));
            return;
        }
        this.setPlaying(false);
        if (element('repeat').checked)
            this.setPlaying(true);
    }

    stepFrames(by) {
        const sinceStart = this.time - startOf(this.step);
        const isInside = sinceStart > (this.isPlaying ? BACK_TO_START_MILLISECONDS : 0);
        let step = this.step + (by < 0 && isInside ? 0 : by);
        while (step > 0 && !isInside && by < 0 && startOf(step) === startOf(this.step))
            --step; // of frames that take no time, the last one shows
        if (step < film.steps.length)
            this.goTo(startOf(Math.max(step, 0)));
        else
            this.goTo(film.milliseconds);
    }

    stepPictures(by) {
        this.setPlaying(false);
        const {starts} = this.pictures;
        const index = this.pictures.indexAt(this.time) + by;
        this.goTo(starts[Math.min(Math.max(index, 0), starts.length - 1)]);
    }

    onKey(event) {
        const {target} = event;
        const isControl = target.matches?.('select, input:not([type="range"])') ?? false;
        if (event.ctrlKey || event.altKey || event.metaKey || isControl)
            return;
        if (event.key === ' ' && target.matches?.('button, summary'))
            return; // which it presses
        const actions = {
            ' ': () => this.setPlaying(!this.isPlaying),
            'ArrowLeft': () => event.shiftKey ? this.stepPictures(-1) : this.stepFrames(-1),
            'ArrowRight': () => event.shiftKey ? this.stepPictures(1) : this.stepFrames(1),
            'Home': () => this.goTo(0),
            'End': () => this.goTo(film.milliseconds),
        };
        if (!Object.hasOwn(actions, event.key))
            return;
        event.preventDefault();
        actions[event.key]();
    }
}

/* ---- The page ---- */

function showFacts() {
    const findings = [film.findings, ...film.frames.map(frame => frame.findings)].flat();
    const counts = ['error', 'warning', 'note'].map(severity => {
        const count = findings.filter(finding => finding.severity === severity).length;
        return count > 0 ? counted(count, severity) : '';
    });
    document.title = film.title;
    element('title').textContent = film.title;
    element('facts').textContent = [counted(film.frames.length, 'frame'), duration(film.milliseconds),
        `${film.width} \u00d7 ${film.height} dots`, ...counts].filter(text => text !== '').join(' \u00b7 ');
    element('sign').setAttribute('aria-label', `The sign, ${film.width} by ${film.height} dots`);
}

async function start() {
    showFacts();
    const bytes = await unpacked(element('pictures').textContent);
    const player = new Player(new Pictures(bytes, film.width, film.height));
    if (!wantsLessMotion.matches && !document.hidden)
        player.setPlaying(true);
}

start().catch(error => {
    element('problem').textContent = `The film cannot be played in this browser: ${error.message}`;
    element('problem').hidden = false;
});

})();
