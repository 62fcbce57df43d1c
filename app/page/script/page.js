// Puts the map together.

const LEAST_SIDE = settings.isPlane ? 1 : 1 / 40000;  // of the first view, in world units

// The system that places of the map are in.
function systemOfMap() {
    if (!settings.isPlane) {
        return L.CRS.EPSG3857;
    }
    const metres = settings.metresPerUnit || 1;
    return L.extend({}, L.CRS.Simple, {
        distance: (a, b) => Math.hypot(a.lng - b.lng, a.lat - b.lat) * metres
    });
}

// The box that is shown first, in world units.
function firstBox(layers) {
    if (settings.view) {
        const [minX, minY, maxX, maxY] = settings.view;
        return [worldX(minX), worldY(maxY), worldX(maxX), worldY(minY)];
    }
    const box = boxOfLayers(layers) || [0, 0, 1, 1];
    const isPoint = box[2] - box[0] < LEAST_SIDE * 1e-6 && box[3] - box[1] < LEAST_SIDE * 1e-6;
    const pad = isPoint ? LEAST_SIDE / 2 : 0;
    return [box[0] - pad, box[1] - pad, box[2] + pad, box[3] + pad];
}

// The part of the window, in pixels, that nothing lies over.
function freePart(map) {
    const margin = 24, size = map.getSize();
    const list = map.getContainer().querySelector('.layers');
    const besideList = size.x - (list ? list.offsetWidth + 2 * margin : 0);
    const isWide = besideList > 0.6 * size.x;
    return {left: margin, top: margin, right: (isWide ? besideList : size.x) - margin,
        bottom: size.y - 2 * margin};
}

// Shows the box as large as there is room for it.
function showBox(map, box) {
    const free = freePart(map), crs = map.options.crs, snap = map.options.zoomSnap;
    const scale = Math.min(
        Math.max(free.right - free.left, 50) / Math.max(box[2] - box[0], 1e-12),
        Math.max(free.bottom - free.top, 50) / Math.max(box[3] - box[1], 1e-12));
    const fit = Math.floor(crs.zoom(scale) / snap) * snap;
    const most = settings.isPlane ? fit + 14 : Math.min(22, fit + 14);
    const zoom = settings.isPlane ? fit : Math.max(0, Math.min(fit, most));
    map.setMinZoom(settings.isPlane ? fit - 3 : Math.max(0, Math.floor(fit) - 3));
    map.setMaxZoom(Math.max(most, zoom + 1));
    const middle = L.point((box[0] + box[2]) / 2, (box[1] + box[3]) / 2).multiplyBy(crs.scale(zoom));
    const size = map.getSize();
    const offset = L.point((size.x - free.left - free.right) / 2,
        (size.y - free.top - free.bottom) / 2);
    map.setView(crs.pointToLatLng(middle.add(offset), zoom), zoom, {animate: false});
}

function addBaseMap(map) {
    const attribution = document.createElement('span');
    attribution.textContent = settings.attribution;
    L.control.attribution({prefix: false}).addTo(map).addAttribution(attribution.innerHTML);
    L.tileLayer(settings.tiles, {maxNativeZoom: 19, maxZoom: 22}).addTo(map);
}

function addScale(map) {
    const isUnknown = settings.isPlane && settings.metresPerUnit === undefined;
    const Scale = isUnknown ? UnitScale : L.Control.Scale;
    new Scale({imperial: false, maxWidth: 120}).addTo(map);
}

function answerClicks(map, painter) {
    const context = newCanvas(1, 1).getContext('2d');
    const find = event => {
        const at = event.layerPoint.subtract(painter._bounds.min);
        return featuresAt(context, painter.view, painter.layers, at.x, at.y);
    };
    map.on('click', event => {
        const found = find(event);
        if (found.length === 0) {
            return;
        }
        const popup = L.popup({maxWidth: 360, minWidth: 120, maxHeight: 320})
            .setLatLng(event.latlng);
        popup.setContent(cardOf(found, one => {
            painter.select(one);
            popup.update();
        }));
        popup.openOn(map);
    });
    map.on('popupclose', () => painter.select(null));
}

function start() {
    const layers = readLayers();
    const hasTiles = settings.tiles !== undefined;
    if (settings.title) {
        document.body.prepend(newElement('h1', 'title', settings.title));
    }
    const element = document.getElementById('map');
    element.style.background = settings.background;
    const map = L.map(element, {
        crs: systemOfMap(), attributionControl: false, zoomSnap: hasTiles ? 1 : 0.25,
        zoomDelta: hasTiles ? 1 : 0.75, wheelPxPerZoomLevel: 90
    });
    const painter = new Painter(layers);
    new LayerList(layers, painter).addTo(map);
    showBox(map, firstBox(layers));
    if (hasTiles) {
        addBaseMap(map);
    }
    painter.addTo(map);
    addScale(map);
    answerClicks(map, painter);
}

start();
