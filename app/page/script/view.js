// What of the world a canvas shows, and paths on it.

const CLIP_MARGIN = 64;  // pixels around the canvas
const FINEST_STEP = 0.4;  // pixels between vertices

class View {
    // `left` and `top` are where the canvas begins, in pixels of the whole world at this scale.
    constructor(scale, left, top, width, height) {
        this.scale = scale;
        this.left = left;
        this.top = top;
        this.width = width;
        this.height = height;
    }

    x(world) {
        return world * this.scale - this.left;
    }

    y(world) {
        return world * this.scale - this.top;
    }

    // Whether the box of the item, and what reaches so many pixels beyond it, is on the canvas.
    shows(layer, item, reach) {
        const box = layer.box, i = 4 * item;
        return this.x(box[i + 2]) >= -reach && this.x(box[i]) <= this.width + reach &&
            this.y(box[i + 3]) >= -reach && this.y(box[i + 1]) <= this.height + reach;
    }

    // On which sides of the canvas a place lies, as bits; 0 on it or near.
    sidesOf(x, y) {
        return (x < -CLIP_MARGIN ? 1 : x > this.width + CLIP_MARGIN ? 2 : 0) |
            (y < -CLIP_MARGIN ? 4 : y > this.height + CLIP_MARGIN ? 8 : 0);
    }
}

// Adds a ring to the path of a context. Vertices that can't be told from the one before are left
// out, and so are those of a way on one side of the canvas.
function traceRing(context, view, xy, from, to) {
    let lastX = NaN, lastY = NaN, lastSides = 0;
    let heldX = NaN, heldY = NaN, heldSides = 0;  // waits for the one behind it
    let isFirst = true;
    const put = (x, y, sides) => {
        if (isFirst) {
            context.moveTo(x, y);
            isFirst = false;
        } else {
            context.lineTo(x, y);
        }
        lastX = x;
        lastY = y;
        lastSides = sides;
    };
    for (let q = from; q < to; ++q) {
        const x = view.x(xy[2 * q]), y = view.y(xy[2 * q + 1]);
        if (Math.abs(x - lastX) < FINEST_STEP && Math.abs(y - lastY) < FINEST_STEP) {
            continue;
        }
        const sides = view.sidesOf(x, y);
        if (heldX === heldX && !(heldSides & sides & lastSides)) {
            put(heldX, heldY, heldSides);
            heldX = NaN;
        }
        if (sides && !isFirst) {
            heldX = x;
            heldY = y;
            heldSides = sides;
        } else {
            put(x, y, sides);
        }
    }
    if (heldX === heldX) {
        put(heldX, heldY, heldSides);
    }
    context.closePath();
}

// Adds a line to the path of a context. What lies on one side of the canvas is left out, except
// under dashes, which would begin anew.
function traceLine(context, view, xy, from, to, isDashed) {
    let lastX = view.x(xy[2 * from]), lastY = view.y(xy[2 * from + 1]);
    let lastSides = view.sidesOf(lastX, lastY);
    let isDown = false;
    for (let q = from + 1; q < to; ++q) {
        const x = view.x(xy[2 * q]), y = view.y(xy[2 * q + 1]);
        if (q + 1 < to && Math.abs(x - lastX) < FINEST_STEP && Math.abs(y - lastY) < FINEST_STEP) {
            continue;
        }
        const sides = view.sidesOf(x, y);
        if ((sides & lastSides) && !isDashed) {
            isDown = false;
        } else {
            if (!isDown) {
                context.moveTo(lastX, lastY);
                isDown = true;
            }
            context.lineTo(x, y);
        }
        lastX = x;
        lastY = y;
        lastSides = sides;
    }
}

// Adds all parts of a line or area to the path of a context.
function traceItem(context, view, layer, item, isDashed) {
    for (let part = layer.firstPart[item]; part < layer.firstPart[item + 1]; ++part) {
        const from = layer.firstPoint[part], to = layer.firstPoint[part + 1];
        if (layer.kind[item] === AREA) {
            traceRing(context, view, layer.xy, from, to);
        } else {
            traceLine(context, view, layer.xy, from, to, isDashed);
        }
    }
}

// Calls use(x, y) for each point of a point item, in pixels of the canvas.
function eachPoint(view, layer, item, use) {
    const part = layer.firstPart[item];
    for (let q = layer.firstPoint[part]; q < layer.firstPoint[part + 1]; ++q) {
        use(view.x(layer.xy[2 * q]), view.y(layer.xy[2 * q + 1]));
    }
}
