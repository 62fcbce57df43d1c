// Draws the layers on a canvas that the map moves along.

const LARGEST_STROKE_BATCH = 500;  // items whose lines are drawn in one go

function fillWith(context, style, symbols, left, top) {
    const fill = style.fill;
    if (!fill) {
        return;
    }
    if (fill.back) {
        context.fillStyle = fill.back;
        context.fill('evenodd');
    }
    if (!fill.lines) {
        context.fillStyle = fill.color;
        context.fill('evenodd');
        return;
    }
    for (const lines of fill.lines) {
        context.fillStyle = symbols.patternOf(context, lines, fill.color, left, top);
        context.fill('evenodd');
    }
}

function strokeWith(context, style, widest) {
    const stroke = style.stroke;
    if (!stroke) {
        return;
    }
    context.strokeStyle = stroke.color;
    context.lineWidth = Math.min(stroke.width, widest || Infinity);
    context.lineJoin = 'round';
    context.lineCap = stroke.dashes ? 'butt' : 'round';
    context.setLineDash(stroke.dashes || []);
    context.stroke();
    context.setLineDash([]);
}

// Remembers where symbols of a style are, so that a million points do not become a million symbols
// on top of each other.
class MarkerGrid {
    constructor(view) {
        this.view = view;
        this.style = -1;
        this.round = 0;  // cells of an earlier round are free
        this.cells = new Uint32Array((Math.ceil(view.width) + 1) * (Math.ceil(view.height) + 1));
    }

    // Whether no symbol of the style is within about a quarter of its size, since the last one of
    // another style. Places off the canvas are always free.
    take(style, x, y) {
        if (!(x >= 0 && y >= 0 && x < this.view.width && y < this.view.height)) {
            return true;
        }
        if (this.style !== style) {
            this.style = style;
            this.cell = Math.max(1, styles[style].marker.size / 4);
            this.columns = Math.ceil(this.view.width / this.cell);
            ++this.round;
        }
        const at = Math.floor(y / this.cell) * this.columns + Math.floor(x / this.cell);
        const isFree = this.cells[at] !== this.round;
        this.cells[at] = this.round;
        return isFree;
    }

    // Something was drawn over the symbols so far.
    forget() {
        this.style = -1;
    }
}

const Painter = L.Renderer.extend({
    options: {padding: 0.2},

    initialize: function (layers) {
        L.Renderer.prototype.initialize.call(this, {});
        this.layers = layers;
        this.selected = null;  // {layer, feature}
    },

    _initContainer: function () {
        this._container = newCanvas(1, 1);
        this._container.className = 'leaflet-layer objects';
    },

    _destroyContainer: function () {
        this._container.remove();
        this._container = null;
    },

    // Called by the map after each move.
    _update: function () {
        if (this._map._animatingZoom && this._bounds) {
            return;
        }
        L.Renderer.prototype._update.call(this);
        const size = this._bounds.getSize();
        const density = window.devicePixelRatio || 1;
        const canvas = this._container;
        L.DomUtil.setPosition(canvas, this._bounds.min);
        canvas.width = Math.round(size.x * density);
        canvas.height = Math.round(size.y * density);
        canvas.style.width = size.x + 'px';
        canvas.style.height = size.y + 'px';
        if (!this.symbols || this.symbols.density !== density) {
            this.symbols = new Symbols(density);
        }
        const corner = this._map.getPixelOrigin().add(this._bounds.min);
        this.view = new View(this._map.options.crs.scale(this._map.getZoom()), corner.x, corner.y,
            size.x, size.y);
        this.paint();
    },

    paint: function () {
        const context = this._container.getContext('2d');
        const density = this.symbols.density;
        context.setTransform(1, 0, 0, 1, 0, 0);
        context.clearRect(0, 0, this._container.width, this._container.height);
        context.setTransform(density, 0, 0, density, 0, 0);
        let drawn = 0;
        for (const layer of this.layers) {
            drawn += layer.isVisible ? this.paintLayer(context, layer) : 0;
        }
        if (this.selected) {
            this.paintSelected(context);
        }
        const labels = paintLabels(context, this.view, this.layers);
        // For whoever looks at the page from outside: what is on it, and that it is ready.
        this._container.dataset.objects = drawn;
        this._container.dataset.labels = labels;
    },

    // Returns how many features are in the view.
    paintLayer: function (context, layer) {
        const view = this.view;
        const grid = new MarkerGrid(view);
        let drawn = 0, lastFeature = -1, batch = 0, batchStyle = -1;
        const flush = () => {
            if (batch > 0) {
                strokeWith(context, styles[batchStyle]);
            }
            batch = 0;
        };
        for (let item = 0; item < layer.size; ++item) {
            const number = layer.style[item], style = styles[number], kind = layer.kind[item];
            if (!view.shows(layer, item, reachOf(style))) {
                continue;
            }
            if (layer.feature[item] !== lastFeature) {
                lastFeature = layer.feature[item];
                ++drawn;
            }
            if (kind === LINE && batch > 0 && number === batchStyle && batch < LARGEST_STROKE_BATCH) {
                traceItem(context, view, layer, item, style.stroke && style.stroke.dashes);
                ++batch;
                continue;
            }
            flush();
            if (kind !== POINT) {
                grid.forget();
            }
            if (kind === LINE) {
                context.beginPath();
                traceItem(context, view, layer, item, style.stroke && style.stroke.dashes);
                batch = 1;
                batchStyle = number;
            } else if (kind === AREA) {
                this.paintArea(context, layer, item, style);
            } else if (kind === POINT) {
                this.paintPoints(context, layer, item, number, grid);
            } else {
                paintText(context, view, layer, item, style.font);
            }
        }
        flush();
        return drawn;
    },

    paintArea: function (context, layer, item, style) {
        const view = this.view, box = layer.box, i = 4 * item;
        const width = (box[i + 2] - box[i]) * view.scale;
        const height = (box[i + 3] - box[i + 1]) * view.scale;
        if (width < 1 && height < 1) {
            const paint = style.stroke || style.fill;
            if (paint) {
                context.fillStyle = paint.color;
                context.fillRect(view.x(box[i]), view.y(box[i + 1]), 1, 1);
            }
            return;
        }
        context.beginPath();
        traceItem(context, view, layer, item, false);
        fillWith(context, style, this.symbols, view.left, view.top);
        strokeWith(context, style);
    },

    paintPoints: function (context, layer, item, number, grid) {
        const marker = styles[number].marker;
        if (!(marker.size > 0)) {
            return;
        }
        const picture = this.symbols.pictureOf(number);
        const density = this.symbols.density;
        const half = picture.width / 2 / density;
        eachPoint(this.view, layer, item, (x, y) => {
            const isNear = x > -half && y > -half && x < this.view.width + half &&
                y < this.view.height + half;
            if (isNear && grid.take(number, x, y)) {
                // On whole pixels, where the picture stays sharp.
                context.drawImage(picture, Math.round((x - half) * density) / density,
                    Math.round((y - half) * density) / density, 2 * half, 2 * half);
            }
        });
    },

    paintSelected: function (context) {
        const {layer, feature} = this.selected;
        context.save();
        context.strokeStyle = 'rgba(255, 196, 0, 0.85)';
        context.lineJoin = context.lineCap = 'round';
        for (let item = 0; item < layer.size; ++item) {
            if (layer.feature[item] !== feature || !layer.isVisible) {
                continue;
            }
            const style = styles[layer.style[item]];
            context.lineWidth = 4;
            if (layer.kind[item] === POINT) {
                eachPoint(this.view, layer, item, (x, y) => {
                    context.beginPath();
                    context.arc(x, y, style.marker.size / 2 + 5, 0, 2 * Math.PI);
                    context.stroke();
                });
            } else if (layer.kind[item] !== TEXT) {
                context.lineWidth += style.stroke ? style.stroke.width : 0;
                context.beginPath();
                traceItem(context, this.view, layer, item, false);
                context.stroke();
                strokeWith(context, style);
            }
        }
        context.restore();
    },

    select: function (selected) {
        this.selected = selected;
        if (this._map) {
            this.paint();
        }
    }
});
