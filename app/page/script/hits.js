// What is under the pointer.

const NEAR = 5;  // pixels

function squaredDistanceToEdge(x, y, fromX, fromY, toX, toY) {
    const alongX = toX - fromX, alongY = toY - fromY;
    const length = alongX * alongX + alongY * alongY;
    const part = length > 0
        ? Math.max(0, Math.min(1, ((x - fromX) * alongX + (y - fromY) * alongY) / length)) : 0;
    const offX = x - fromX - part * alongX, offY = y - fromY - part * alongY;
    return offX * offX + offY * offY;
}

// Whether the place is within `reach` of the item's edges, and whether its rings enclose it.
function hitEdges(view, layer, item, x, y, reach) {
    let isNear = false, isInside = false;
    for (let part = layer.firstPart[item]; part < layer.firstPart[item + 1]; ++part) {
        const to = layer.firstPoint[part + 1];
        for (let q = layer.firstPoint[part] + 1; q < to; ++q) {
            const fromX = view.x(layer.xy[2 * q - 2]), fromY = view.y(layer.xy[2 * q - 1]);
            const toX = view.x(layer.xy[2 * q]), toY = view.y(layer.xy[2 * q + 1]);
            isNear = isNear ||
                squaredDistanceToEdge(x, y, fromX, fromY, toX, toY) <= reach * reach;
            if ((fromY > y) !== (toY > y) &&
                x < fromX + (toX - fromX) * (y - fromY) / (toY - fromY)) {
                isInside = !isInside;
            }
        }
    }
    return {isNear, isInside};
}

function isTextHit(context, view, layer, item, x, y) {
    const font = styles[layer.style[item]].font;
    const place = placeOfText(context, view, layer, item, font);
    const width = Math.max(place.boxWidth, place.measure.widest * place.size);
    const begin = place.boxWidth > 0 ? 0 : -width * ALIGNMENTS[place.text.justify];
    const alongX = Math.cos(place.angle), alongY = Math.sin(place.angle);
    const along = (x - place.x) * alongX + (y - place.y) * alongY;
    const up = (x - place.x) * alongY - (y - place.y) * alongX;
    return along >= begin && along <= begin + width && up >= 0 && up <= place.height;
}

function isHit(context, view, layer, item, x, y) {
    const style = styles[layer.style[item]];
    const reach = Math.max(NEAR, reachOf(style) / 2);
    if (!view.shows(layer, item, reach)) {
        return false;
    }
    const box = layer.box, i = 4 * item;
    if (x < view.x(box[i]) - reach || x > view.x(box[i + 2]) + reach ||
        y < view.y(box[i + 1]) - reach || y > view.y(box[i + 3]) + reach) {
        return false;
    }
    if (layer.kind[item] === POINT) {
        let isNear = false;
        const radius = style.marker.size / 2 + 3;
        eachPoint(view, layer, item, (atX, atY) => {
            isNear = isNear || Math.hypot(x - atX, y - atY) <= radius;
        });
        return isNear;
    }
    if (layer.kind[item] === TEXT) {
        return isTextHit(context, view, layer, item, x, y);
    }
    const {isNear, isInside} = hitEdges(view, layer, item, x, y, reach);
    return isNear || (layer.kind[item] === AREA && isInside);
}

const MOST_FOUND = 50;

// The features at a place of the canvas, the top one first.
function featuresAt(context, view, layers, x, y) {
    const found = [];
    for (const layer of layers.slice().reverse()) {
        for (let item = layer.size - 1; layer.isVisible && item >= 0; --item) {
            const feature = layer.feature[item];
            const isKnown = one => one.layer === layer && one.feature === feature;
            if (isHit(context, view, layer, item, x, y) && !found.some(isKnown)) {
                found.push({layer, feature});
                if (found.length === MOST_FOUND) {
                    return found;
                }
            }
        }
    }
    return found;
}
