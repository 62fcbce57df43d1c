#!/usr/bin/python3
"""Pages of qolf draw in a headless Chromium: pages.py QOLF SAMPLES FOLDER [unittest arguments]

Makes pages in FOLDER, opens them as a user would, and leaves a screenshot of each there.
"""

import http.server
import json
import pathlib
import re
import shutil
import subprocess
import sys
import threading
import unittest

from picture import colours_of
from webdriver import Browser

QOLF, SAMPLES, FOLDER = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])

# What a text of a hostile file may be: each would leave a mark on the window if it ran.
ATTACKS = [
    '<script>window.attacked = 1</script>',
    '</script><script>window.attacked = 2</script>',
    '<img src=x onerror="window.attacked = 3">',
    '"><svg onload=window.attacked=4>',
    "';window.attacked = 5;//",
    '<!--<script>',
    'javascript:window.attacked=6',
    '${window.attacked = 7}',
    '\u202e\u2066gnp.exe\u2069',
    '__proto__',
    'constructor',
]


def qolf(*arguments):
    """Runs the command; returns what it said on standard error."""
    done = subprocess.run([QOLF, *map(str, arguments)], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        raise AssertionError(done.stderr)
    return done.stderr


def features_of(path):
    """The features of a file, as GeoJSON in longitude and latitude."""
    done = subprocess.run([QOLF, 'convert', '--to', 'geojsonl', path, '-'], capture_output=True,
                          text=True, check=True)
    return [json.loads(line) for line in done.stdout.splitlines()]


def layers_in(page):
    """The feature collections inside a page."""
    return [json.loads(text) for text in
            re.findall(r'<script type="application/json" class="layer">(.*?)</script>',
                       page.read_text(), re.DOTALL)]


def collection(name, features):
    path = FOLDER / f'{name}.geojson'
    path.write_text(json.dumps({'type': 'FeatureCollection', 'features': features}))
    return path


def point(longitude, latitude, **properties):
    return {'type': 'Feature', 'properties': properties,
            'geometry': {'type': 'Point', 'coordinates': [longitude, latitude]}}


class Pages(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        FOLDER.mkdir(parents=True, exist_ok=True)
        cls.browser = cls.enterClassContext(Browser())

    def make(self, *arguments):
        """Makes a page with the name of the test. Returns its path."""
        page = FOLDER / f'{self._testMethodName}.html'
        self.said = qolf('draw', '--overwrite', *arguments, page)
        return page

    def show(self, page):
        """Opens a page and waits until its objects are drawn."""
        self.browser.console()  # what an earlier page left
        self.browser.requests()
        self.browser.open(page.as_uri())
        self.wait_for_objects()
        (FOLDER / f'{page.stem}.png').write_bytes(self.browser.screenshot())

    def wait_for_objects(self):
        self.browser.wait_for(
            "const canvas = document.querySelector('canvas.objects');"
            "return canvas && canvas.dataset.objects !== undefined")

    def check_quiet(self, page):
        """No message on the console, and no request but for the page itself."""
        self.assertEqual(self.browser.console(), [])
        self.assertEqual(self.browser.requests(), [page.as_uri()])

    def drawn(self, what='objects'):
        return int(self.browser.run(
            f"return document.querySelector('canvas.objects').dataset.{what}"))

    def places_of(self, red, green, blue):
        """Where on the canvas of the map pixels have this colour, in pixels of the window."""
        return self.browser.run("""
            const canvas = document.querySelector('canvas.objects');
            const box = canvas.getBoundingClientRect();
            const copy = document.createElement('canvas');  // one that is made for reading
            copy.width = canvas.width;
            copy.height = canvas.height;
            const context = copy.getContext('2d', {willReadFrequently: true});
            context.drawImage(canvas, 0, 0);
            const data = context.getImageData(0, 0, canvas.width, canvas.height).data;
            const places = [];
            for (let i = 0; i < data.length; i += 4) {
                if (data[i] === arguments[0] && data[i + 1] === arguments[1] &&
                    data[i + 2] === arguments[2] && data[i + 3] === 255) {
                    const pixel = i / 4;
                    places.push([box.left + pixel % canvas.width,
                        box.top + Math.floor(pixel / canvas.width)]);
                }
            }
            return places;""", red, green, blue)

    def click_on(self, red, green, blue):
        places = self.places_of(red, green, blue)
        self.assertTrue(places, 'nothing on the map has this colour')
        self.browser.click(*places[len(places) // 2])
        self.browser.wait_for("return document.querySelector('.leaflet-popup table')")

    def table(self):
        return dict(self.browser.run(
            "return Array.from(document.querySelectorAll('.leaflet-popup tr'), row => "
            "[row.cells[0].textContent, row.cells[1].textContent])"))

    def test_shows_every_object_and_asks_for_nothing(self):
        files = [SAMPLES / f'island{part}.mif' for part in ('', '-ways', '-places')]
        page = self.make(*files)
        self.show(page)

        self.assertEqual(self.drawn(), sum(len(features_of(file)) for file in files))
        self.check_quiet(page)

    def test_screenshot_is_not_blank(self):
        page = self.make(SAMPLES / 'styles.mif')
        self.show(page)

        colours = colours_of(self.browser.screenshot())
        for colour in ((0, 0, 255), (0, 255, 255), (255, 0, 255), (0, 0, 0)):
            self.assertGreater(colours[colour], 200, colour)

    def test_click_shows_the_attributes(self):
        feature = point(25, 59, name='Tallinn', people=450000, **{'marker-color': '#ff0000'})
        page = self.make(collection('click', [feature]))
        self.show(page)
        self.click_on(255, 0, 0)

        self.assertEqual(self.table(),
                         {'name': 'Tallinn', 'people': '450000', 'marker-color': '#ff0000'})
        self.check_quiet(page)

    def test_click_on_several_objects_shows_one_after_the_other(self):
        style = {'marker-color': '#ff0000'}
        page = self.make(collection('several', [point(25, 59, name='below', **style),
                                                point(25, 59, name='above', **style)]))
        self.show(page)
        self.click_on(255, 0, 0)

        self.assertEqual(self.table()['name'], 'above')
        self.browser.run("document.querySelector('.leaflet-popup .next').click()")
        self.assertEqual(self.table()['name'], 'below')

    def test_click_beside_objects_shows_nothing(self):
        page = self.make(collection('beside', [point(25, 59, name='Tallinn')]))
        self.show(page)
        self.browser.click(200, 400)

        self.assertEqual(self.browser.run(
            "return document.querySelectorAll('.leaflet-popup').length"), 0)

    def test_switch_hides_a_layer_and_shows_it_again(self):
        page = self.make(
            collection('red', [point(25, 59, **{'marker-color': '#ff0000'})]),
            collection('blue', [point(26, 59, **{'marker-color': '#0000ff'})]))
        self.show(page)
        self.assertEqual(self.drawn(), 2)
        switch = ("Array.from(document.querySelectorAll('.layers .row'))"
                  ".find(row => row.textContent.includes('red')).querySelector('input').click()")

        self.browser.run(switch)
        self.assertEqual(self.drawn(), 1)
        self.assertEqual(self.places_of(255, 0, 0), [])
        self.assertTrue(self.places_of(0, 0, 255))
        self.browser.run(switch)
        self.assertEqual(self.drawn(), 2)
        self.assertTrue(self.places_of(255, 0, 0))
        self.check_quiet(page)

    def test_zooming_draws_the_map_anew(self):
        page = self.make('--label', 'island-ways:name', SAMPLES / 'island-ways.mif')
        self.show(page)
        self.assertGreater(self.drawn('labels'), 2)
        scale = self.browser.run("return document.querySelector('.leaflet-control-scale').textContent")

        self.browser.run("document.querySelector('.leaflet-control-zoom-in').click()")
        self.browser.wait_for(
            "return !document.querySelector('.leaflet-zoom-anim') && document"
            f".querySelector('.leaflet-control-scale').textContent !== {json.dumps(scale)}")
        self.assertGreater(self.drawn(), 0)
        self.check_quiet(page)

    def test_plane_without_a_place_on_the_earth(self):
        file = SAMPLES / 'real' / 'nonearth_mix.mif'
        page = self.make(file)
        self.show(page)

        self.assertEqual(self.drawn(), len(features_of(file)))
        self.assertIn('m', self.browser.run(
            "return document.querySelector('.leaflet-control-scale').textContent"))
        self.check_quiet(page)

    def test_projected_files_are_on_their_places(self):
        for name in ('finnish_kkj', 'lambert_ntf', 'utm_ridge'):
            with self.subTest(name):
                file = SAMPLES / 'real' / f'{name}.mif'
                page = self.make(file)
                self.show(page)
                expected = features_of(file)

                self.assertEqual(self.drawn(), len(expected))
                self.check_quiet(page)
                found = [position for layer in layers_in(page)
                         for feature in layer['features'] for position in self.positions(feature)]
                there = [position for feature in expected for position in self.positions(feature)]
                for position in found:
                    self.assertTrue(any(abs(position[0] - other[0]) < 1e-5 and
                                        abs(position[1] - other[1]) < 1e-5 for other in there))

    @staticmethod
    def positions(feature):
        waiting, found = [feature['geometry']['coordinates']], []
        while waiting:
            item = waiting.pop()
            if isinstance(item[0], list):
                waiting.extend(item)
            else:
                found.append(item)
        return found

    def test_cyrillic_names(self):
        page = self.make('--title', 'Улицы', SAMPLES / 'real' / 'cyrillic.mif')
        self.show(page)
        self.click_on(0, 255, 0)

        self.assertTrue(any(re.search('[а-я]', value) for value in self.table().values()),
                        self.table())
        self.assertEqual(self.browser.run("return document.querySelector('h1').textContent"), 'Улицы')
        self.assertEqual(self.browser.run('return document.title'), 'Улицы')
        self.check_quiet(page)

    def test_points_at_180_degrees_are_neighbours(self):
        style = {'marker-color': '#ff0000'}
        page = self.make(collection('dateline', [point(180, 0, **style), point(-179.9, 0, **style),
                                                 point(179.9, 0, **style)]))
        self.show(page)

        self.assertEqual(self.drawn(), 3)
        columns = sorted({x for x, _ in self.places_of(255, 0, 0)})
        groups = 1 + sum(b - a > 20 for a, b in zip(columns, columns[1:]))
        self.assertEqual(groups, 3)
        scale = self.browser.run("return document.querySelector('.leaflet-control-scale').textContent")
        self.assertRegex(scale, r'^\d+ (m|km)$')
        self.assertLessEqual(int(scale.split()[0]), 10 if scale.endswith('km') else 1000)
        self.check_quiet(page)

    def test_one_point_at_180_degrees(self):
        page = self.make(collection('one', [point(180, 65, **{'marker-color': '#ff0000'})]))
        self.show(page)

        self.assertEqual(self.drawn(), 1)
        self.assertTrue(self.places_of(255, 0, 0))
        self.check_quiet(page)

    def test_texts_of_a_hostile_file_stay_texts(self):
        # Every value, name of a column, title and label is an attack.
        values = {attack: attack for attack in ATTACKS}
        path = FOLDER / "<img src=x onerror=alert(1)>.geojson"
        path.write_text(json.dumps({'type': 'FeatureCollection', 'features': [
            {'type': 'Feature', 'properties': {**values, 'marker-color': '#ff0000'},
             'geometry': {'type': 'Point', 'coordinates': [25, 59]}}]}))
        page = self.make('--title', ATTACKS[1], '--label', ATTACKS[2], '--legend', path)
        self.show(page)
        self.click_on(255, 0, 0)

        table = self.table()
        for attack in ATTACKS:
            shown = re.sub('[\u202e\u2066\u2069]', '', attack)
            self.assertEqual(table.get(shown), shown)
        self.assertEqual(self.drawn('labels'), 1)
        self.assertEqual(self.browser.run('return document.title'), ATTACKS[1])
        self.check_not_attacked(page, scripts=3)

    def test_texts_and_fonts_of_a_hostile_pair_stay_texts(self):
        lines = ['Version 300', 'Charset "WindowsLatin1"', 'Columns 1', '  a Char(200)', 'Data', '']
        rows = []
        for i, attack in enumerate(attack for attack in ATTACKS if attack.isascii()):
            text = attack.replace('"', "'")
            lines += [f'Text "{text}"', f'    0 {i} 5 {i + 1}', f'    Font ("{text}",0,0,255)',
                      f'Point 6 {i}', f'    Symbol (65,16711680,18,"{text}",0,0)']
            rows += [f'"{text}"'] * 2
        pair = FOLDER / 'hostile.mif'
        pair.write_text('\n'.join(lines) + '\n')
        pair.with_suffix('.mid').write_text('\n'.join(rows) + '\n')
        page = self.make('--label', 'a', pair)
        self.show(page)

        self.assertEqual(self.drawn(), len(rows))
        self.click_on(255, 0, 0)
        self.check_not_attacked(page, scripts=3)

    def check_not_attacked(self, page, scripts):
        self.assertIsNone(self.browser.run('return window.attacked === undefined ? null : 1'))
        self.assertEqual(self.browser.run(
            "return document.querySelectorAll('img, svg, iframe, [onload], [onerror]').length"), 0)
        self.assertEqual(self.browser.run("return document.scripts.length"), scripts)
        self.check_quiet(page)

    def test_policy_stops_any_other_script(self):
        page = self.make(collection('policy', [point(25, 59)]))
        self.show(page)
        self.browser.run("const script = document.createElement('script');"
                         "script.textContent = 'window.attacked = 1';"
                         "document.body.appendChild(script);"
                         "document.body.appendChild(document.createElement('img')).src = "
                         "'http://127.0.0.1:9/x.png';")

        self.assertIsNone(self.browser.run('return window.attacked === undefined ? null : 1'))
        refused = self.browser.console()
        self.assertTrue(any('script-src' in message for message in refused), refused)

    def test_size_thins_lines_and_says_so(self):
        wave = [[25 + i / 1e5, 59 + (i % 7) / 1e3 + (i % 1000) / 1e4] for i in range(40000)]
        feature = {'type': 'Feature', 'properties': {},
                   'geometry': {'type': 'LineString', 'coordinates': wave}}
        page = self.make('--size', '500K', collection('wave', [feature]))
        self.show(page)

        self.assertLessEqual(page.stat().st_size, 500 * 1024)
        self.assertRegex(self.said, r'thinned to about [\d.]+ m to stay within 0\.5 MB; --size')
        self.assertEqual(self.drawn(), 1)
        self.check_quiet(page)

    def test_base_map_is_asked_of_its_server_alone(self):
        tiles = TileServer()
        self.addCleanup(tiles.close)
        page = self.make('--tiles', tiles.address + '/{z}/{x}/{y}.png', '--attribution',
                         '<b>Mapmakers</b> & Sons', collection('tiles', [point(25, 59)]))
        self.show(page)
        self.browser.wait_for("return document.querySelector('img.leaflet-tile-loaded')")

        self.assertEqual(self.browser.run(
            "return document.querySelector('.leaflet-control-attribution').textContent"),
            '<b>Mapmakers</b> & Sons')
        self.assertEqual(self.browser.console(), [])
        urls = self.browser.requests()
        self.assertIn(page.as_uri(), urls)
        self.assertTrue(all(url == page.as_uri() or url.startswith(tiles.address + '/')
                            for url in urls), urls)

    def test_data_of_the_map_is_not_laid_out(self):
        page = self.make(collection('data', [point(25, 59)]))
        self.show(page)

        self.assertEqual(self.browser.run(
            "return Array.from(document.scripts, script => getComputedStyle(script).display)"),
            ['none'] * 3)

    def test_many_objects_appear_within_seconds(self):
        # A grid of 40,000 areas. The limit is wide: it is there for steps that grow as a square.
        features = []
        for i in range(40000):
            x, y = 20 + (i % 200) / 100, 50 + (i // 200) / 100
            features.append({'type': 'Feature', 'properties': {'number': i}, 'geometry': {
                'type': 'Polygon', 'coordinates': [[[x, y], [x + .01, y], [x + .01, y + .01],
                                                    [x, y + .01], [x, y]]]}})
        page = self.make(collection('many', features))
        self.show(page)

        self.assertEqual(self.drawn(), 40000)
        self.check_quiet(page)


class TileServer:
    """Serves one grey picture under any name."""

    PICTURE = bytes.fromhex(
        '89504e470d0a1a0a0000000d4948445200000001000000010800000000'
        '3a7e9b550000000a49444154789c63b00200004b004a6a9a8aa30000000049454e44ae426082')

    def __init__(self):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):  # noqa: N802, the library's name
                self.send_response(200)
                self.send_header('Content-Type', 'image/png')
                self.end_headers()
                self.wfile.write(TileServer.PICTURE)

            def log_message(self, *_):
                pass

        self.server = http.server.ThreadingHTTPServer(('127.0.0.1', 0), Handler)
        self.address = f'http://127.0.0.1:{self.server.server_address[1]}'
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def close(self):
        self.server.shutdown()
        self.server.server_close()


if __name__ == '__main__':
    for program in ('chromium', 'chromedriver'):
        if not shutil.which(program):
            sys.exit(f'{program} is not installed; ./test browser installs it')
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
