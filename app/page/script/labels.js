// Labels that overlap nothing: around points, along lines, inside areas. The top layer's come first.

const LABEL_FONT = '12px sans-serif';
const LABEL_HEIGHT = 14;
const LABEL_BASELINE = 10.5;  // below the top
const LABEL_GAP = 2;
const REPEAT_DISTANCE = 160;  // between labels of one text along lines
const STRAIGHT = 0.9;  // the ends' distance against the way along the line
const SCAN_LINES = 12;
const CELL = 4;
const MOST_LABELS = 2000, MOST_TRIED = 20000;

// Which parts of the canvas are taken, in squares.
class TakenCells {
    constructor(view) {
        this.view = view;
        this.columns = Math.floor(view.width / CELL) + 1;
        this.rows = Math.floor(view.height / CELL) + 1;
        this.cells = new Uint8Array(this.columns * this.rows);
    }

    range(box) {
        const cell = (at, count) => Math.max(0, Math.min(count - 1, Math.floor(at / CELL)));
        return [cell(box[0], this.columns), cell(box[1], this.rows), cell(box[2], this.columns),
            cell(box[3], this.rows)];
    }

    isFree(box) {
        if (box[0] < 0 || box[1] < 0 || box[2] > this.view.width || box[3] > this.view.height) {
            return false;
        }
        const [left, top, right, bottom] = this.range(box);
        for (let row = top; row <= bottom; ++row) {
            for (let column = left; column <= right; ++column) {
                if (this.cells[row * this.columns + column]) {
                    return false;
                }
            }
        }
        return true;
    }

    take(box) {
        if (box[2] < 0 || box[3] < 0 || box[0] > this.view.width || box[1] > this.view.height) {
            return;
        }
        const [left, top, right, bottom] = this.range(box);
        for (let row = top; row <= bottom; ++row) {
            this.cells.fill(1, row * this.columns + left, row * this.columns + right + 1);
        }
    }
}

function boxAround(x, y, width, height) {
    return [x - width / 2, y - height / 2, x + width / 2, y + height / 2];
}

// Squares as high as the words, one beside the other, that together cover their turned box.
function squaresOf(place, width, height) {
    const reach = Math.max(width - height, 0) / 2;
    const steps = Math.max(1, Math.min(200, Math.ceil(2 * reach / height)));
    const boxes = [];
    for (let i = 0; i <= steps; ++i) {
        const at = -reach + 2 * reach * i / steps;
        boxes.push(boxAround(place.x + Math.cos(place.angle) * at,
            place.y + Math.sin(place.angle) * at, height, height));
    }
    return boxes;
}

class LabelPlaces {
    constructor(view) {
        this.view = view;
        this.symbols = new TakenCells(view);
        this.labels = new TakenCells(view);
        this.alongLines = new Map();  // places by text
    }

    aroundPoint(x, y, reach, width) {
        const besideX = reach + LABEL_GAP + width / 2, besideY = reach + LABEL_HEIGHT / 2;
        const near = reach * 0.7;
        const nearX = near + LABEL_GAP + width / 2, nearY = near + LABEL_HEIGHT / 2;
        const offsets = [[besideX, 0], [nearX, -nearY], [nearX, nearY], [-besideX, 0],
            [-nearX, -nearY], [-nearX, nearY], [0, -besideY], [0, besideY]];
        for (const avoidsSymbols of [true, false]) {
            for (const [offsetX, offsetY] of offsets) {
                const box = boxAround(x + offsetX, y + offsetY, width, LABEL_HEIGHT);
                if (this.labels.isFree(box) && (!avoidsSymbols || this.symbols.isFree(box))) {
                    this.labels.take(box);
                    return {x: x + offsetX, y: y + offsetY, angle: 0};
                }
            }
        }
        return null;
    }

    // `path` is a list of places, `text` the label.
    alongLine(path, width, text) {
        const distances = [0];
        for (let i = 1; i < path.length; ++i) {
            distances.push(distances[i - 1] +
                Math.hypot(path[i][0] - path[i - 1][0], path[i][1] - path[i - 1][1]));
        }
        const length = distances[distances.length - 1];
        const at = distance => {
            let i = 1;
            while (i < path.length - 1 && distances[i] < distance) {
                ++i;
            }
            const part = (distance - distances[i - 1]) / (distances[i] - distances[i - 1] || 1);
            return [path[i - 1][0] + (path[i][0] - path[i - 1][0]) * part,
                path[i - 1][1] + (path[i][1] - path[i - 1][1]) * part];
        };
        for (const part of [0.5, 0.35, 0.65, 0.2, 0.8]) {
            const begin = length * part - width / 2;
            if (begin < 0 || begin + width > length) {
                continue;
            }
            const from = at(begin), to = at(begin + width);
            const place = {x: (from[0] + to[0]) / 2, y: (from[1] + to[1]) / 2,
                angle: uprightAngle(from, to)};
            const isStraight = Math.hypot(to[0] - from[0], to[1] - from[1]) >= STRAIGHT * width;
            if (isStraight && !this.isNearSame(text, place) && this.takeTurned(place, width)) {
                this.alongLines.set(text, (this.alongLines.get(text) || []).concat(place));
                return place;
            }
        }
        return null;
    }

    isNearSame(text, place) {
        return (this.alongLines.get(text) || []).some(
            other => Math.hypot(other.x - place.x, other.y - place.y) < REPEAT_DISTANCE);
    }

    takeTurned(place, width) {
        const boxes = squaresOf(place, width, LABEL_HEIGHT);
        if (!boxes.every(box => this.labels.isFree(box))) {
            return false;
        }
        boxes.forEach(box => this.labels.take(box));
        return true;
    }

    // `rings` are lists of places.
    insideArea(rings, width) {
        let top = this.view.height, bottom = 0;
        for (const ring of rings) {
            for (const [, y] of ring) {
                top = Math.min(top, y);
                bottom = Math.max(bottom, y);
            }
        }
        top = Math.max(top, 0);
        bottom = Math.min(bottom, this.view.height);
        if (bottom - top < LABEL_HEIGHT) {
            return null;
        }
        const found = [];
        for (let i = 1; i < SCAN_LINES; ++i) {
            const y = top + (bottom - top) * i / SCAN_LINES, half = LABEL_HEIGHT / 2;
            const inside = common(common(insideAt(rings, y - half), insideAt(rings, y + half)),
                insideAt(rings, y));
            for (const [begin, end] of inside) {
                const left = Math.max(begin, 0), right = Math.min(end, this.view.width);
                if (right - left >= width) {
                    found.push({x: (left + right) / 2, y, angle: 0, width: right - left});
                }
            }
        }
        found.sort((a, b) => b.width - a.width);
        for (const place of found) {
            const box = boxAround(place.x, place.y, width, LABEL_HEIGHT);
            if (this.labels.isFree(box)) {
                this.labels.take(box);
                return place;
            }
        }
        return null;
    }
}

function uprightAngle(from, to) {
    const angle = Math.atan2(to[1] - from[1], to[0] - from[0]);
    return angle > Math.PI / 2 ? angle - Math.PI : angle < -Math.PI / 2 ? angle + Math.PI : angle;
}

// The parts of a horizontal line that an odd number of rings encloses.
function insideAt(rings, y) {
    const crossings = [];
    for (const ring of rings) {
        for (let i = 0; i < ring.length; ++i) {
            const [fromX, fromY] = ring[i], [toX, toY] = ring[(i + 1) % ring.length];
            if ((fromY <= y) !== (toY <= y)) {
                crossings.push(fromX + (toX - fromX) * ((y - fromY) / (toY - fromY)));
            }
        }
    }
    crossings.sort((a, b) => a - b);
    const inside = [];
    for (let i = 1; i < crossings.length; i += 2) {
        inside.push([crossings[i - 1], crossings[i]]);
    }
    return inside;
}

// The parts that both have.
function common(left, right) {
    const parts = [];
    for (const a of left) {
        for (const b of right) {
            const begin = Math.max(a[0], b[0]), end = Math.min(a[1], b[1]);
            if (end > begin) {
                parts.push([begin, end]);
            }
        }
    }
    return parts;
}

// The places of a part, in pixels of the canvas.
function pathOf(view, layer, part) {
    const path = [];
    let lastX = NaN, lastY = NaN;
    for (let q = layer.firstPoint[part]; q < layer.firstPoint[part + 1]; ++q) {
        const x = view.x(layer.xy[2 * q]), y = view.y(layer.xy[2 * q + 1]);
        if (!(Math.abs(x - lastX) < 1 && Math.abs(y - lastY) < 1)) {
            path.push([x, y]);
            lastX = x;
            lastY = y;
        }
    }
    return path;
}

// The longest part of the item's lines that is on the canvas.
function longestVisiblePath(view, layer, item) {
    let longest = [], longestLength = 0, path = [], length = 0;
    const end = () => {
        if (length > longestLength) {
            longest = path;
            longestLength = length;
        }
        path = [];
        length = 0;
    };
    for (let part = layer.firstPart[item]; part < layer.firstPart[item + 1]; ++part) {
        let last = null;
        for (const place of pathOf(view, layer, part)) {
            const isInside = place[0] >= 0 && place[1] >= 0 && place[0] <= view.width &&
                place[1] <= view.height;
            if (isInside) {
                length += path.length > 0 ? Math.hypot(place[0] - last[0], place[1] - last[1]) : 0;
                path.push(place);
            } else {
                end();
            }
            last = place;
        }
        end();
    }
    return longest;
}

function placeOfLabel(places, view, layer, item, width, label) {
    if (layer.kind[item] === POINT) {
        const style = styles[layer.style[item]];
        let place = null, isFirst = true;
        eachPoint(view, layer, item, (x, y) => {
            if (isFirst && x >= 0 && y >= 0 && x <= view.width && y <= view.height) {
                isFirst = false;
                place = places.aroundPoint(x, y, style.marker.size / 2, width);
            }
        });
        return place;
    }
    if (layer.kind[item] === LINE) {
        const path = longestVisiblePath(view, layer, item);
        return path.length > 1 ? places.alongLine(path, width, label) : null;
    }
    const rings = [];
    for (let part = layer.firstPart[item]; part < layer.firstPart[item + 1]; ++part) {
        rings.push(pathOf(view, layer, part));
    }
    return places.insideArea(rings, width);
}

const labelWidths = new Map();

function widthOfLabel(context, label) {
    let width = labelWidths.get(label);
    if (width === undefined) {
        width = context.measureText(label).width;
        labelWidths.set(label, width);
    }
    return width;
}

function paintLabel(context, place, label, width) {
    context.save();
    context.translate(place.x, place.y);
    context.rotate(place.angle);
    context.strokeText(label, -width / 2, LABEL_BASELINE - LABEL_HEIGHT / 2);
    context.fillText(label, -width / 2, LABEL_BASELINE - LABEL_HEIGHT / 2);
    context.restore();
}

// Keeps labels off the symbols and the texts of all layers.
function avoidObjects(places, context, view, layers) {
    for (const layer of layers) {
        for (let item = 0; layer.isVisible && item < layer.size; ++item) {
            if (!view.shows(layer, item, 0)) {
                continue;
            }
            const style = styles[layer.style[item]];
            if (layer.kind[item] === POINT) {
                eachPoint(view, layer, item, (x, y) => {
                    places.symbols.take(boxAround(x, y, style.marker.size, style.marker.size));
                });
            } else if (layer.kind[item] === TEXT) {
                avoidText(places, placeOfText(context, view, layer, item, style.font));
            }
        }
    }
}

function avoidText(places, place) {
    const {size, measure, height, angle} = place;
    if (!(size >= SMALLEST_TEXT && size <= LARGEST_TEXT)) {
        return;
    }
    const width = measure.widest * size;
    const right = (place.boxWidth - width) * ALIGNMENTS[place.text.justify] + width / 2;
    const x = place.x + Math.cos(angle) * right + Math.sin(angle) * height / 2;
    const y = place.y + Math.sin(angle) * right - Math.cos(angle) * height / 2;
    squaresOf({x, y, angle}, width, height).forEach(box => places.labels.take(box));
}

// Returns how many labels there are.
function paintLabels(context, view, layers) {
    if (!layers.some(layer => layer.isVisible && layer.label !== undefined)) {
        return 0;
    }
    const places = new LabelPlaces(view);
    avoidObjects(places, context, view, layers);
    context.font = LABEL_FONT;
    context.lineJoin = 'round';
    context.lineWidth = 3;
    context.strokeStyle = 'rgba(255, 255, 255, 0.86)';
    context.fillStyle = '#222';
    let count = 0, tried = 0;
    for (const layer of layers.slice().reverse()) {
        let labelled = -1;  // one label for all items of a feature
        for (let item = 0; layer.isVisible && layer.label !== undefined && item < layer.size; ++item) {
            const feature = layer.feature[item];
            if (feature === labelled || layer.kind[item] === TEXT || !view.shows(layer, item, 0)) {
                continue;
            }
            const label = layer.labelOf(item);
            if (label === '' || count === MOST_LABELS || tried === MOST_TRIED) {
                continue;
            }
            labelled = feature;
            ++tried;
            const width = widthOfLabel(context, label);
            const place = placeOfLabel(places, view, layer, item, width, label);
            if (place) {
                paintLabel(context, place, label, width);
                ++count;
            }
        }
    }
    return count;
}
