// What is on the map beside its objects. All texts of files are put in as text, never as markup.

function newElement(name, className, text) {
    const element = document.createElement(name);
    element.className = className;
    if (text !== undefined) {
        element.textContent = text;
    }
    return element;
}

const MOST_SAMPLES = 8;

function isSeen(style) {
    return style.marker ? style.marker.size > 0 : Boolean(style.font || style.stroke || style.fill);
}

// The first styles of a layer, as samples.
function samplesOf(layer, most) {
    const seen = new Map();
    for (let item = 0; item < layer.size && seen.size < most; ++item) {
        const kind = layer.kind[item];
        if (!seen.has(layer.style[item]) && isSeen(styles[layer.style[item]])) {
            seen.set(layer.style[item], sampleOf(layer.style[item], kind));
        }
    }
    return Array.from(seen.values());
}

// A list of the layers, the top one first, each with a switch.
const LayerList = L.Control.extend({
    options: {position: 'topright'},

    initialize: function (layers, painter) {
        this.layers = layers;
        this.painter = painter;
    },

    onAdd: function () {
        const details = newElement('details', 'layers');
        details.open = window.innerWidth > 500;
        details.appendChild(newElement('summary', '', 'Layers'));
        for (const layer of this.layers.slice().reverse()) {
            details.appendChild(this.rowOf(layer));
        }
        L.DomEvent.disableClickPropagation(details);
        L.DomEvent.disableScrollPropagation(details);
        return details;
    },

    rowOf: function (layer) {
        const row = newElement('label', 'row');
        const box = newElement('input', '');
        box.type = 'checkbox';
        box.checked = true;
        box.addEventListener('change', () => {
            layer.isVisible = box.checked;
            this.painter.paint();
        });
        row.appendChild(box);
        const samples = samplesOf(layer, settings.legend ? MOST_SAMPLES : 1);
        if (!settings.legend) {
            samples.forEach(one => row.appendChild(one));
        }
        row.appendChild(newElement('bdi', 'name', layer.name));
        const count = newElement('span', 'count', layer.features.length.toLocaleString('en'));
        count.title = layer.features.length === 1 ? '1 object' : layer.features.length + ' objects';
        row.appendChild(count);
        if (settings.legend) {
            const legend = newElement('span', 'legend');
            samples.forEach(one => legend.appendChild(one));
            row.appendChild(legend);
        }
        return row;
    }
});

// The scale of a plane whose unit is not known.
const UnitScale = L.Control.Scale.extend({
    _updateMetric: function (units) {
        const round = this._getRoundNum(units);
        this._updateScale(this._mScale, round + (round === 1 ? ' unit' : ' units'), round / units);
    },

    _getRoundNum: function (number) {
        const power = Math.pow(10, Math.floor(Math.log10(number)));
        const digit = number / power;
        return Number(((digit >= 5 ? 5 : digit >= 2 ? 2 : 1) * power).toPrecision(1));
    }
});

function tableOf(layer, feature) {
    const table = newElement('table', 'attributes');
    const properties = layer.features[feature].properties;
    for (const column of layer.columns) {
        if (Object.hasOwn(properties, column)) {
            const row = table.insertRow();
            const head = newElement('th', '', column);
            head.scope = 'row';
            row.appendChild(head);
            row.appendChild(newElement('td', '', String(properties[column])));
        }
    }
    if (table.rows.length === 0) {
        table.insertRow().appendChild(newElement('td', 'nothing', 'No attributes'));
    }
    return table;
}

// The content of a popup for one or more features; `show` is called with the one that is seen.
function cardOf(found, show) {
    const card = newElement('div', 'card');
    let at = 0;
    const fill = () => {
        const {layer, feature} = found[at];
        card.textContent = '';
        const head = newElement('div', 'head');
        head.appendChild(newElement('bdi', 'name', layer.name));
        if (found.length > 1) {
            const next = newElement('button', 'next', (at + 1) + ' of ' + found.length + ' \u203a');
            next.type = 'button';
            next.title = 'The next object here';
            next.addEventListener('click', () => {
                at = (at + 1) % found.length;
                fill();
            });
            head.appendChild(next);
        }
        card.appendChild(head);
        card.appendChild(tableOf(layer, feature));
        show(found[at]);
    };
    fill();
    return card;
}
