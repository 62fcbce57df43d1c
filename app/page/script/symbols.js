// Point symbols and hatches: small pictures, each made once.

const styles = settings.styles;

const SHADOW = '#787878';

// How far the ink of a style reaches beyond its points, in pixels.
function reachOf(style) {
    if (style.marker) {
        return style.marker.size + (style.marker.borderWidth || 0) + 2;
    }
    return style.stroke ? style.stroke.width : 0;
}

function traceMarker(context, marker, radius) {
    context.beginPath();
    if (!marker.rings) {
        context.arc(0, 0, radius, 0, 2 * Math.PI);
        return;
    }
    for (const ring of marker.rings) {
        for (let i = 0; i < ring.length; i += 2) {
            if (i === 0) {
                context.moveTo(ring[i] * radius, ring[i + 1] * radius);
            } else {
                context.lineTo(ring[i] * radius, ring[i + 1] * radius);
            }
        }
        context.closePath();
    }
}

// Draws the symbol around the origin.
function drawMarker(context, marker) {
    const radius = marker.size / 2;
    if (marker.line) {  // hollow
        traceMarker(context, marker, radius - marker.line / 2);
        context.lineWidth = marker.line;
        context.lineJoin = 'miter';
        context.strokeStyle = marker.color;
        context.stroke();
        return;
    }
    context.rotate(-(marker.degrees || 0) * Math.PI / 180);
    if (marker.shadow) {
        context.save();
        context.translate(marker.size / 12, marker.size / 12);
        traceMarker(context, marker, radius);
        context.fillStyle = SHADOW;
        context.fill();
        context.restore();
    }
    traceMarker(context, marker, radius);
    if (marker.border) {
        context.strokeStyle = marker.border;
        context.lineWidth = 2 * marker.borderWidth;
        context.lineJoin = 'round';
        context.stroke();
    }
    context.fillStyle = marker.color;
    context.fill();
}

function newCanvas(width, height) {
    const canvas = document.createElement('canvas');
    canvas.width = width;
    canvas.height = height;
    return canvas;
}

// The pictures for one density of pixels.
class Symbols {
    constructor(density) {
        this.density = density;
        this.pictures = new Map();
        this.tiles = new Map();
    }

    // The picture of a style's marker; its middle is its place.
    pictureOf(number) {
        let picture = this.pictures.get(number);
        if (!picture) {
            const marker = styles[number].marker;
            const side = 2 * Math.ceil((marker.size + (marker.borderWidth || 0) + 2) * this.density) + 1;
            picture = newCanvas(side, side);
            const context = picture.getContext('2d');
            context.translate(side / 2, side / 2);
            context.scale(this.density, this.density);
            drawMarker(context, marker);
            this.pictures.set(number, picture);
        }
        return picture;
    }

    // A pattern of parallel lines. Those of the whole map go on from one area to the next: `left`
    // and `top` are where the canvas lies in it.
    patternOf(context, lines, color, left, top) {
        const [degrees, spacing, width] = lines;
        const side = Math.max(2, Math.round(spacing * this.density));
        const key = color + ' ' + side + ' ' + width;
        let tile = this.tiles.get(key);
        if (!tile) {
            tile = newCanvas(side, side);
            const own = tile.getContext('2d');
            own.fillStyle = color;
            own.fillRect(0, 0, side, Math.max(1, Math.round(width * this.density)));
            this.tiles.set(key, tile);
        }
        const angle = -degrees * Math.PI / 180;
        const along = -left * Math.cos(angle) - top * Math.sin(angle);
        const across = left * Math.sin(angle) - top * Math.cos(angle);
        const pattern = context.createPattern(tile, 'repeat');
        pattern.setTransform(new DOMMatrix().rotate(angle * 180 / Math.PI)
            .translate(along % spacing, across % spacing).scale(spacing / side));
        return pattern;
    }
}

// A sample of a style for the list of layers.
function sampleOf(number, kind) {
    const density = window.devicePixelRatio || 1;
    const canvas = newCanvas(Math.ceil(26 * density), Math.ceil(18 * density));
    canvas.className = 'sample';
    const context = canvas.getContext('2d');
    context.scale(density, density);
    const style = styles[number];
    if (kind === POINT) {
        const size = style.marker.size;
        context.translate(13, 9);
        context.scale(Math.min(1, 14 / size), Math.min(1, 14 / size));
        drawMarker(context, style.marker);
    } else if (kind === TEXT) {
        context.font = fontOf(style.font, 13);
        context.fillStyle = style.font.color;
        context.textAlign = 'center';
        context.fillText('Abc', 13, 13);
    } else {
        context.beginPath();
        if (kind === AREA) {
            context.rect(3.5, 2.5, 19, 13);
            fillWith(context, style, new Symbols(density), 0, 0);
        } else {
            context.moveTo(2, 13);
            context.bezierCurveTo(10, 13, 14, 5, 24, 5);
        }
        strokeWith(context, style, 5);
    }
    return canvas;
}
