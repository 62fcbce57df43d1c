"""A headless Chromium, driven by chromedriver with nothing but Python's own library."""

import base64
import json
import re
import shutil
import subprocess
import tempfile
import time
import urllib.error
import urllib.request

ARGUMENTS = [
    '--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
    '--disable-background-networking', '--disable-component-update', '--disable-sync',
    '--disable-dev-shm-usage', '--force-device-scale-factor=1', '--hide-scrollbars',
    '--lang=en',
]
START_SECONDS = 180
CALL_SECONDS = 300


class Browser:
    """One window. Use it in a with statement: it ends its processes and deletes its profile."""

    def __init__(self, width=1000, height=700):
        self.size = (width, height)
        self.profile = None
        self.driver = None
        self.session = None

    def __enter__(self):
        self.profile = tempfile.mkdtemp(prefix='qolf-browser-')
        try:
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self.session is not None:
            try:
                self._call('DELETE', '')
            except OSError:
                pass
            self.session = None
        if self.driver is not None:
            self.driver.terminate()
            try:
                self.driver.wait(10)
            except subprocess.TimeoutExpired:
                self.driver.kill()
                self.driver.wait()
        shutil.rmtree(self.profile, ignore_errors=True)

    def open(self, url):
        self._call('POST', '/url', {'url': url})

    def run(self, script, *arguments):
        """Runs the body of a function in the page and returns what it returns."""
        return self._call('POST', '/execute/sync', {'script': script, 'args': list(arguments)})

    def wait_for(self, script, seconds=180):
        """Waits until the body of a function returns something that counts as true."""
        end = time.monotonic() + seconds
        while True:
            value = self.run(script)
            if value:
                return value
            if time.monotonic() > end:
                raise AssertionError(f'the page never came to: {script}')
            time.sleep(0.05)

    def click(self, x, y):
        """A press and release of the mouse, in pixels of the window."""
        self._call('POST', '/actions', {'actions': [{
            'type': 'pointer', 'id': 'mouse', 'parameters': {'pointerType': 'mouse'},
            'actions': [
                {'type': 'pointerMove', 'duration': 0, 'x': round(x), 'y': round(y)},
                {'type': 'pointerDown', 'button': 0},
                {'type': 'pointerUp', 'button': 0},
            ]}]})

    def screenshot(self):
        """The window as PNG."""
        return base64.b64decode(self._call('GET', '/screenshot'))

    def console(self):
        """The console's messages since the last call."""
        return [row['message'] for row in self._log('browser')]

    def requests(self):
        """The addresses that were asked for since the last call, those of data: URIs left out."""
        urls = []
        for row in self._log('performance'):
            message = json.loads(row['message'])['message']
            if message['method'] == 'Network.requestWillBeSent':
                url = message['params']['request']['url']
                if not url.startswith('data:'):
                    urls.append(url)
        return urls

    def _log(self, kind):
        return self._call('POST', '/se/log', {'type': kind})

    def _start(self):
        self.driver = subprocess.Popen(['chromedriver', '--port=0'], stdout=subprocess.PIPE,
                                       stderr=subprocess.STDOUT, text=True)
        for line in self.driver.stdout:
            found = re.search(r'started successfully on port (\d+)', line)
            if found:
                break
        else:
            raise RuntimeError('chromedriver did not start')
        self.root = f'http://127.0.0.1:{found.group(1)}/session'
        width, height = self.size
        options = {
            'args': ARGUMENTS + [f'--user-data-dir={self.profile}',
                                 f'--window-size={width},{height}'],
            'binary': shutil.which('chromium'),
        }
        answer = self._request('POST', self.root, {'capabilities': {'alwaysMatch': {
            'goog:chromeOptions': options,
            'goog:loggingPrefs': {'browser': 'ALL', 'performance': 'ALL'},
        }}}, START_SECONDS)
        self.session = answer['sessionId']
        self.open('about:blank')
        self.console()  # what the window's own first page had to say
        self.requests()

    def _call(self, method, path, body=None):
        return self._request(method, f'{self.root}/{self.session}{path}', body, CALL_SECONDS)

    @staticmethod
    def _request(method, url, body, seconds):
        data = None if body is None and method != 'POST' else json.dumps(body or {}).encode()
        request = urllib.request.Request(url, data, {'Content-Type': 'application/json'},
                                         method=method)
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        try:
            with opener.open(request, timeout=seconds) as answer:
                return json.load(answer)['value']
        except urllib.error.HTTPError as error:
            raise RuntimeError(error.read().decode(errors='replace')[:2000]) from error
