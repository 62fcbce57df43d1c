#!/usr/bin/python3
"""Opens styled GeoPackages in QGIS and compares what it shows with the pictures of qolf draw.

  compare.py QOLF SAMPLES FOLDER

Each case is converted with --styles, opened as a user of QGIS opens it, and rendered at the extent
and size of qolf draw's picture. The package's style must be the default one and must have a symbol
for each feature; each colour that covers a noticeable part of one picture must cover as much of the
other, within 10 %. The pictures stay in FOLDER.
"""
import os
import shutil
import subprocess
import sys

os.environ["QT_QPA_PLATFORM"] = "offscreen"
os.environ.setdefault("XDG_RUNTIME_DIR", "/tmp")

from qgis.core import (QgsApplication, QgsMapRendererParallelJob, QgsMapSettings, QgsProject,
                       QgsRectangle, QgsVectorLayer)
from qgis.PyQt.QtCore import QSize
from qgis.PyQt.QtGui import QColor, QImage

PAGE = 800  # pixels, of the longer side
NOTICEABLE = 0.002  # of the page
MIXED = 16  # of 255, in each channel: what is nearer to a mixture of two colours is one
TOLERANCE = 0.10

POINTS = """{"type":"FeatureCollection","features":[%s]}""" % ",".join(
    '{"type":"Feature","properties":{"marker-color":"%s","marker-size":"large",'
    '"marker-symbol":"%s"},"geometry":{"type":"Point","coordinates":[%s,%s]}}'
    % (("#d03030", "#3050d0")[i % 2], name, 0.001 * (i % 4), 0.001 * (i // 4))
    for i, name in enumerate(
        ["square", "diamond", "circle", "star", "triangle", "cross", "square-stroked",
         "circle-stroked"]))


def cases(samples, folder):
    points = os.path.join(folder, "points.geojson")
    with open(points, "w", encoding="utf-8") as out:
        out.write(POINTS)
    styles = os.path.join(folder, "styles.mif")
    with open(os.path.join(samples, "styles.mif"), encoding="latin-1") as source, \
            open(styles, "w", encoding="latin-1") as out:
        out.write(source.read().replace("Weather", "DejaVu Sans"))  # a font that is installed
    shutil.copy(os.path.join(samples, "styles.mid"), folder)
    island = [os.path.join(samples, name + ".mif")
              for name in ("island", "island-ways", "island-places")]
    return [("island", "EPSG:3301", island),
            ("styles", "keep", [styles]),
            ("objects", "keep", [os.path.join(samples, "objects.mif")]),
            ("points", "EPSG:3857", [points])]


def run(*command):
    result = subprocess.run(command, capture_output=True, text=True, check=False)
    if result.returncode != 0:
        sys.exit("%s: %s" % (" ".join(command), result.stderr))


def layers_of(package):
    """The layers as the browser of QGIS lists them: one for each kind of geometry."""
    first = QgsVectorLayer(package, "all", "ogr")
    layers = []
    for entry in first.dataProvider().subLayers():
        parts = entry.split("!!::!!")
        uri = "%s|layername=%s" % (package, parts[1])
        if len(parts) > 3 and parts[3] not in ("", "Unknown"):
            uri += "|geometrytype=" + parts[3]
        layer = QgsVectorLayer(uri, parts[1], "ogr")
        if layer.isSpatial():
            layers.append(layer)
    return layers


def check_style(layer):
    faults = []
    if layer.renderer().type() != "categorizedSymbol":
        return [layer.name() + ": the package's style is not the default one"]
    numbers = {str(category.value()) for category in layer.renderer().categories()
               if category.symbol() is not None}
    for feature in layer.getFeatures():
        if feature.hasGeometry() and str(feature["style"]) not in numbers:
            faults.append("%s: style %s has no symbol" % (layer.name(), feature["style"]))
    return faults


def extent_of(layers):
    extent = QgsRectangle()
    extent.setMinimal()
    for layer in layers:
        extent.combineExtentWith(layer.extent())
    grown = 0.06 * max(extent.width(), extent.height())
    return extent.buffered(grown)


def render(layers, extent, size, path):
    settings = QgsMapSettings()
    settings.setLayers(list(reversed(layers)))  # the first one is on top there
    settings.setDestinationCrs(layers[0].crs())
    settings.setExtent(extent)
    settings.setOutputSize(size)
    settings.setOutputDpi(96)
    settings.setBackgroundColor(QColor("white"))
    job = QgsMapRendererParallelJob(settings)
    job.start()
    job.waitForFinished()
    image = job.renderedImage()
    image.save(path)
    return image


def histogram(image):
    counts = {}
    image = image.convertToFormat(QImage.Format_RGB32)
    for y in range(image.height()):
        for x in range(image.width()):
            pixel = image.pixel(x, y) & 0xFFFFFF
            counts[pixel] = counts.get(pixel, 0) + 1
    return counts


def channels(colour):
    return (colour >> 16 & 255, colour >> 8 & 255, colour & 255)


def mixture(colour, left, right):
    """The part of `right` in the mixture of both that is nearest to the colour, and how far it is."""
    point, start, end = channels(colour), channels(left), channels(right)
    way = [e - s for s, e in zip(start, end)]
    length = sum(w * w for w in way)
    part = sum((p - s) * w for p, s, w in zip(point, start, way)) / length if length else 0.0
    part = min(max(part, 0.0), 1.0)
    return part, max(abs(s + part * w - p) for s, w, p in zip(start, way, point))


def nearest_mixture(colour, palette):
    """Edges are mixtures of the two colours that meet there."""
    return min(((left, right) + mixture(colour, left, right)
                for i, left in enumerate(palette) for right in palette[i:]),
               key=lambda found: found[3])


def palette_of(pictures):
    """The colours that cover a noticeable part of a picture and are no mixtures of others."""
    most = {}
    for counts in pictures:
        total = sum(counts.values())
        for colour, count in counts.items():
            if count >= NOTICEABLE * total:
                most[colour] = max(most.get(colour, 0), count)
    palette = []
    for colour in sorted(most, key=lambda colour: (-most[colour], colour)):
        if not palette or nearest_mixture(colour, palette)[3] > MIXED:
            palette.append(colour)
    return palette


def areas_of(counts, palette):
    areas = dict.fromkeys(palette, 0.0)
    for colour, count in counts.items():
        left, right, part, _ = nearest_mixture(colour, palette)
        areas[left] += count * (1.0 - part)
        areas[right] += count * part
    return areas


def compare(name, drawn, shown):
    faults = []
    palette = palette_of((drawn, shown))
    drawn_areas, shown_areas = areas_of(drawn, palette), areas_of(shown, palette)
    for colour in palette:
        areas = (drawn_areas[colour], shown_areas[colour])
        print("%-8s #%06x %8d %8d" % (name, colour, *areas))
        if abs(areas[0] - areas[1]) > TOLERANCE * max(areas):
            faults.append("%s: colour #%06x covers %d pixels in the picture, %d in QGIS"
                          % (name, colour, *areas))
    return faults


def check(qolf, name, crs, files, folder):
    package = os.path.join(folder, name + ".gpkg")
    picture = os.path.join(folder, name + "-draw.png")
    run(qolf, "convert", "--quiet", "--overwrite", "--styles", "--crs", crs, *files, package)
    layers = layers_of(package)
    faults = [fault for layer in layers for fault in check_style(layer)]
    extent = extent_of(layers)
    scale = PAGE / max(extent.width(), extent.height())
    size = QSize(round(extent.width() * scale), round(extent.height() * scale))
    run(qolf, "draw", "--quiet", "--overwrite", "--crs", crs, "--margin", "0",
        "--width", str(size.width()), "--height", str(size.height()),
        "--bbox=%r,%r,%r,%r" % (extent.xMinimum(), extent.yMinimum(), extent.xMaximum(),
                                extent.yMaximum()), *files, picture)
    shown = render(layers, extent, size, os.path.join(folder, name + "-qgis.png"))
    return faults + compare(name, histogram(QImage(picture)), histogram(shown))


def main():
    qolf, samples, folder = sys.argv[1:]
    os.makedirs(folder, exist_ok=True)
    QgsApplication.setPrefixPath("/usr", True)
    application = QgsApplication([], False)
    application.initQgis()
    faults = []
    for name, crs, files in cases(samples, folder):
        faults += check(qolf, name, crs, files, folder)
    QgsProject.instance().clear()
    for fault in faults:
        print("FAILED " + fault)
    sys.stdout.flush()
    os._exit(1 if faults else 0)  # the library does not always survive its own end


main()
