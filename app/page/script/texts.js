// Texts of the map, which grow with it.

const SMALLEST_TEXT = 2, LARGEST_TEXT = 2000;  // pixels
const ALIGNMENTS = {left: 0, center: 0.5, right: 1};
const MEASURED_AT = 100;

// The family comes from a file: it is a name in quotes and nothing else.
function fontOf(font, size) {
    const family = font.family.replace(/["\\]/g, '');
    return (font.italic ? 'italic ' : '') + (font.bold ? 'bold ' : '') + size + 'px ' +
        (family ? '"' + family + '", ' : '') + 'sans-serif';
}

const measures = new Map();

// Of the lines at a font size of 1.
function measureOf(context, text, font) {
    const name = fontOf(font, MEASURED_AT);
    const key = name + '\n' + text.lines.join('\n');
    let measure = measures.get(key);
    if (!measure) {
        context.font = name;
        const widths = text.lines.map(line => context.measureText(line).width / MEASURED_AT);
        const letters = context.measureText('Mg');
        const ascent = letters.fontBoundingBoxAscent / MEASURED_AT;
        const height = ascent + letters.fontBoundingBoxDescent / MEASURED_AT;
        const step = height * (text.spacing > 0 ? text.spacing : 1);
        measure = {widths, ascent, step, widest: Math.max(...widths, 0.01),
            height: height + step * (text.lines.length - 1)};
        measures.set(key, measure);
    }
    return measure;
}

// Where the words go: pixels of the canvas, and the angle of their base.
function placeOfText(context, view, layer, item, font) {
    const text = layer.text[item];
    const q = layer.firstPoint[layer.firstPart[item]];
    const at = i => [view.x(layer.xy[2 * (q + i)]), view.y(layer.xy[2 * (q + i) + 1])];
    const [x, y] = at(0), [rightX, rightY] = at(1), [upX, upY] = at(2);
    const width = Math.hypot(rightX - x, rightY - y), height = Math.hypot(upX - x, upY - y);
    const measure = measureOf(context, text, font);
    let size = height / measure.height;
    if (text.box && width > 0) {
        size = Math.min(size, width / measure.widest);
    }
    return {
        x, y, height, size, measure, text,
        boxWidth: text.box ? width : 0,
        angle: width > 0 ? Math.atan2(rightY - y, rightX - x) : Math.atan2(upX - x, y - upY),
        end: text.frame.length > 3 ? at(3) : undefined
    };
}

function paintLineOfText(context, line, size, font) {
    if (font.halo) {
        context.strokeStyle = font.halo;
        context.lineWidth = 0.24 * size;
        context.lineJoin = 'round';
        context.strokeText(line, 0, 0);
    }
    if (font.shadow) {
        context.fillStyle = '#969696';
        context.fillText(line, 0.06 * size, 0.06 * size);
    }
    context.fillStyle = font.color;
    context.fillText(line, 0, 0);
}

function paintLineToObject(context, place, color) {
    const [toX, toY] = place.end;
    const length = Math.hypot(toX - place.x, toY - place.y);
    if (!(length > 0)) {
        return;
    }
    context.strokeStyle = context.fillStyle = color;
    context.lineWidth = 1;
    context.beginPath();
    context.moveTo(place.x, place.y);
    context.lineTo(toX, toY);
    context.stroke();
    if (place.text.arrow) {
        const alongX = (toX - place.x) / length, alongY = (toY - place.y) / length;
        context.beginPath();
        context.moveTo(toX, toY);
        context.lineTo(toX - 7 * alongX - 2.5 * alongY, toY - 7 * alongY + 2.5 * alongX);
        context.lineTo(toX - 7 * alongX + 2.5 * alongY, toY - 7 * alongY - 2.5 * alongX);
        context.fill();
    }
}

function paintText(context, view, layer, item, font) {
    const place = placeOfText(context, view, layer, item, font);
    const {size, measure, text} = place;
    if (!(size >= SMALLEST_TEXT && size <= LARGEST_TEXT)) {
        return;
    }
    if (place.end) {
        paintLineToObject(context, place, font.color);
    }
    const alignment = ALIGNMENTS[text.justify];
    const blockHeight = measure.height * size;
    const spare = place.boxWidth > 0 ? (place.height - blockHeight) / 2 : 0;
    context.save();
    context.translate(place.x, place.y);
    context.rotate(place.angle);
    if (font.ground) {
        const width = measure.widest * size;
        context.fillStyle = font.ground;
        context.fillRect((place.boxWidth - width) * alignment, -blockHeight - spare, width, blockHeight);
    }
    context.font = fontOf(font, size);
    text.lines.forEach((line, i) => {
        const width = measure.widths[i] * size;
        context.save();
        context.translate((place.boxWidth - width) * alignment,
            -blockHeight - spare + (measure.ascent + i * measure.step) * size);
        paintLineOfText(context, line, size, font);
        if (font.underlined) {
            context.fillRect(0, 0.12 * size, width, 0.06 * size);
        }
        context.restore();
    });
    context.restore();
}
