# A headless browser, and one page in it, driven over the pipe of its debugging protocol.
import json
import os
import subprocess
import tempfile
import time

SECONDS_TO_WAIT = 60


class Page:
    def __init__(self, url, width, height, scale=1, **media):
        self.errors = []
        self._folder = tempfile.TemporaryDirectory()
        to_browser, self._out = os.pipe()
        self._in, from_browser = os.pipe()
        command = (f'exec chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --remote-debugging-pipe '
                   f'--user-data-dir="$0" 3<&{to_browser} 4>&{from_browser}')
        self._browser = subprocess.Popen(['bash', '-c', command, self._folder.name], pass_fds=[to_browser, from_browser],
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self._waiting, self._number, self._session = b'', 0, {}
        target = self.call('Target.createTarget', url='about:blank')['targetId']
        self._session = {'sessionId': self.call('Target.attachToTarget', targetId=target, flatten=True)['sessionId']}
        for domain in ('Page', 'Runtime', 'Log'):
            self.call(domain + '.enable')
        self.call('Emulation.setDeviceMetricsOverride', width=width, height=height, deviceScaleFactor=scale,
                  mobile=width < 500)
        self.set_media(**media)
        self.call('Page.navigate', url=url)
        self.wait('document.getElementById("play")?.disabled === false')

    def close(self):
        os.close(self._out)  # which the browser takes for its end
        self._browser.wait(SECONDS_TO_WAIT)
        os.close(self._in)
        self._folder.cleanup()

    def call(self, method, **parameters):
        """Returns the answer. Errors that the page reports meanwhile are kept."""
        self._number += 1
        message = {'id': self._number, 'method': method, 'params': parameters, **self._session}
        os.write(self._out, json.dumps(message).encode() + b'\0')
        while True:
            answer = self._receive()
            event, details = answer.get('method'), answer.get('params', {})
            if event in ('Runtime.consoleAPICalled', 'Runtime.exceptionThrown') or \
                    event == 'Log.entryAdded' and details['entry']['level'] == 'error':
                self.errors.append(details)
            if answer.get('id') == self._number:
                assert 'error' not in answer, answer
                return answer['result']

    def _receive(self):
        while b'\0' not in self._waiting:
            piece = os.read(self._in, 1 << 20)
            assert piece, 'the browser has ended'
            self._waiting += piece
        message, _, self._waiting = self._waiting.partition(b'\0')
        return json.loads(message)

    def set_media(self, **media):
        features = [{'name': name.replace('_', '-'), 'value': value} for name, value in media.items()]
        self.call('Emulation.setEmulatedMedia', features=features)

    def value(self, expression):
        """What an expression is in the page."""
        answer = self.call('Runtime.evaluate', expression=expression, returnByValue=True, awaitPromise=True)
        assert 'exceptionDetails' not in answer, answer
        return answer['result'].get('value')

    def wait(self, condition):
        end = time.monotonic() + SECONDS_TO_WAIT
        while not self.value(condition):
            assert time.monotonic() < end, f'never: {condition}'
            time.sleep(0.02)

    def press(self, key, shift=False):
        text = {'text': key} if len(key) == 1 else {}
        codes = {' ': 32, 'Tab': 9, 'End': 35, 'Home': 36, 'ArrowLeft': 37, 'ArrowRight': 39}
        for kind in ('keyDown', 'keyUp'):
            self.call('Input.dispatchKeyEvent', type=kind, key=key, modifiers=8 if shift else 0,
                      windowsVirtualKeyCode=codes[key], **(text if kind == 'keyDown' else {}))

    def save_picture(self, path):
        import base64
        with open(path, 'wb') as file:
            file.write(base64.b64decode(self.call('Page.captureScreenshot')['data']))
