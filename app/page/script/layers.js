// The layers of the map: GeoJSON as lists of numbers that are quick to draw.
//
// World units: the square of the Mercator projection is 1 by 1; in a plane a unit is the file's.
// y points down.

const settings = JSON.parse(document.getElementById('settings').textContent);

const POINT = 0, LINE = 1, AREA = 2, TEXT = 3;

const KIND_OF_TYPE = {
    Point: POINT, MultiPoint: POINT, LineString: LINE, MultiLineString: LINE,
    Polygon: AREA, MultiPolygon: AREA
};

const LARGEST_LATITUDE = 85.0511287798066;

function worldX(x) {
    return settings.isPlane ? x : x / 360 + 0.5;
}

function worldY(y) {
    if (settings.isPlane) {
        return -y;
    }
    const latitude = Math.max(-LARGEST_LATITUDE, Math.min(LARGEST_LATITUDE, y));
    const sine = Math.sin(latitude * Math.PI / 180);
    return 0.5 - Math.log((1 + sine) / (1 - sine)) / (4 * Math.PI);
}

// The positions of each part of a geometry: points, sections or rings.
function partsOf(geometry) {
    switch (geometry.type) {
    case 'Point':
        return [[geometry.coordinates]];
    case 'MultiPoint':
    case 'LineString':
        return [geometry.coordinates];
    case 'MultiPolygon':
        return [].concat(...geometry.coordinates);
    default:
        return geometry.coordinates;
    }
}

// Numbers in a list that grows.
class Numbers {
    constructor() {
        this.list = new Float64Array(1 << 12);
        this.size = 0;
    }

    push(number) {
        if (this.size === this.list.length) {
            const list = new Float64Array(2 * this.size);
            list.set(this.list);
            this.list = list;
        }
        this.list[this.size++] = number;
    }

    taken() {
        return this.list.slice(0, this.size);
    }
}

// A layer has features, and items, which are what is drawn: a feature of several geometries has
// several items. Item i has the parts from firstPart[i] to firstPart[i + 1], and part p the points
// from firstPoint[p] to firstPoint[p + 1]; point q is at xy[2 * q] and xy[2 * q + 1].
class Layer {
    constructor(collection, number) {
        this.number = number;
        this.name = collection.name;
        this.columns = collection.columns;
        this.label = collection.label;
        this.isVisible = true;
        this.features = collection.features;
        this.kind = [];
        this.style = [];
        this.feature = [];
        this.text = [];  // by item; undefined for what is no text
        this.firstPart = [0];
        this.firstPoint = [0];
        const xy = new Numbers();
        const box = new Numbers();  // four numbers an item: left, top, right, bottom
        for (let i = 0; i < this.features.length; ++i) {
            this.addFeature(this.features[i], i, xy, box);
        }
        this.xy = xy.taken();
        this.box = box.taken();
    }

    get size() {
        return this.kind.length;
    }

    addFeature(feature, at, xy, box) {
        const geometry = feature.geometry;
        if (geometry.type === 'GeometryCollection') {
            geometry.geometries.forEach((member, i) => {
                const text = feature.text ? feature.text[i] : null;
                this.addItem(at, member, feature.style[i], text || undefined, xy, box);
            });
        } else {
            this.addItem(at, geometry, feature.style, feature.text, xy, box);
        }
        feature.geometry = undefined;  // the numbers are kept, not the text's lists
    }

    addItem(feature, geometry, style, text, xy, box) {
        const begin = xy.size;
        const parts = text ? [text.frame] : partsOf(geometry);
        for (const part of parts) {
            for (let i = 0; i < part.length; ++i) {
                xy.push(worldX(part[i][0]));
                xy.push(worldY(part[i][1]));
            }
            this.firstPoint.push(xy.size / 2);
        }
        this.firstPart.push(this.firstPoint.length - 1);
        this.kind.push(text ? TEXT : KIND_OF_TYPE[geometry.type]);
        this.style.push(style);
        this.feature.push(feature);
        this.text.push(text);
        addBox(box, xy, begin, text);
    }

    // The value that labels the item; '' for none.
    labelOf(item) {
        const properties = this.features[this.feature[item]].properties;
        return this.label !== undefined && Object.hasOwn(properties, this.label)
            ? String(properties[this.label]) : '';
    }
}

const LETTER_WIDTH = 0.6;  // a usual letter's, in heights of the text

// The corners of a text's words, in world units; without a box their width is a guess.
function cornersOfText(text, xy, begin) {
    const upX = xy[begin + 4] - xy[begin], upY = xy[begin + 5] - xy[begin + 1];
    let alongX = xy[begin + 2] - xy[begin], alongY = xy[begin + 3] - xy[begin + 1];
    let from = 0;
    if (!text.box) {
        const letters = Math.max(...text.lines.map(line => line.length));
        const width = LETTER_WIDTH * letters / text.lines.length;
        alongX = -upY * width;
        alongY = upX * width;
        from = text.justify === 'left' ? 0 : text.justify === 'center' ? -0.5 : -1;
    }
    const corners = [];
    for (const along of [from, from + 1]) {
        for (const up of [0, 1]) {
            corners.push([xy[begin] + along * alongX + up * upX,
                xy[begin + 1] + along * alongY + up * upY]);
        }
    }
    return corners;
}

// Adds the box of the points from `begin` on. What is west of the map's cut goes to its eastern end.
function addBox(box, xy, begin, text) {
    let left = Infinity, top = Infinity, right = -Infinity, bottom = -Infinity;
    const include = (x, y) => {
        left = Math.min(left, x);
        right = Math.max(right, x);
        top = Math.min(top, y);
        bottom = Math.max(bottom, y);
    };
    for (let i = begin; i < xy.size; i += 2) {
        include(xy.list[i], xy.list[i + 1]);
    }
    if (text) {
        cornersOfText(text, xy.list, begin).forEach(corner => include(corner[0], corner[1]));
    }
    if (settings.seam !== undefined && right < worldX(settings.seam)) {
        for (let i = begin; i < xy.size; i += 2) {
            xy.list[i] += 1;
        }
        left += 1;
        right += 1;
    }
    box.push(left);
    box.push(top);
    box.push(right);
    box.push(bottom);
}

function readLayers() {
    const texts = Array.from(document.querySelectorAll('script.layer'));
    return texts.map((element, number) => {
        const layer = new Layer(JSON.parse(element.textContent), number);
        element.textContent = '';
        return layer;
    });
}

// The box of all items of all layers, in world units; undefined without any.
function boxOfLayers(layers) {
    const box = [Infinity, Infinity, -Infinity, -Infinity];
    for (const layer of layers) {
        for (let i = 0; i < layer.box.length; i += 4) {
            box[0] = Math.min(box[0], layer.box[i]);
            box[1] = Math.min(box[1], layer.box[i + 1]);
            box[2] = Math.max(box[2], layer.box[i + 2]);
            box[3] = Math.max(box[3], layer.box[i + 3]);
        }
    }
    return box[0] <= box[2] ? box : undefined;
}
