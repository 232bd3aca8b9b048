// Building blocks of the page. Texts of the drawing reach the page as text alone, never as markup.

const SVG = 'http://www.w3.org/2000/svg';

function byId(id) {
    return document.getElementById(id);
}

function element(tag, attributes = {}, ...children) {
    const made = document.createElement(tag);
    for (const [name, value] of Object.entries(attributes)) {
        if (value !== null && value !== false) {
            made.setAttribute(name, value === true ? '' : value);
        }
    }
    made.append(...children.filter((child) => child !== null));
    return made;
}

function button(label, onClick, attributes = {}) {
    const made = element('button', { type: 'button', ...attributes }, label);
    made.addEventListener('click', onClick);
    return made;
}

/** Outlines of the marks in a box from -9 to 9; each severity has a shape of its own. */
const SEVERITIES = {
    error: { one: 'error', many: 'errors', outline: 'M0-9L9 0L0 9L-9 0Z' },
    warning: { one: 'warning', many: 'warnings', outline: 'M0-8.5L9 7.5L-9 7.5Z' },
    note: { one: 'note', many: 'notes', outline: 'M-7 0A7 7 0 1 1 7 0A7 7 0 1 1-7 0Z' },
};

function severityMark(severity) {
    const mark = document.createElementNS(SVG, 'svg');
    mark.setAttribute('viewBox', '-9 -9 18 18');
    mark.setAttribute('class', `mark ${severity}`);
    mark.setAttribute('aria-hidden', 'true');
    const path = document.createElementNS(SVG, 'path');
    path.setAttribute('d', SEVERITIES[severity].outline);
    mark.append(path);
    return mark;
}

/** Tells those who cannot see the picture what it shows now. */
function announce(text) {
    byId('live').textContent = text;
}

const figure = new Intl.NumberFormat('en', { maximumSignificantDigits: 6 });
const metre = new Intl.NumberFormat('en', {
    minimumFractionDigits: 1,
    maximumFractionDigits: 1,
});
const height = new Intl.NumberFormat('en', {
    minimumFractionDigits: 3,
    maximumFractionDigits: 3,
});

function counted(number, one, many) {
    return `${figure.format(number)} ${number === 1 ? one : many}`;
}

/**
 * Fills a list a hundred items at a time, so that a list of thousands is there at once: the next
 * hundred comes when the end of what is there scrolls into sight.
 */
class LongList {
    constructor(container, makeItem) {
        this.container = container;
        this.makeItem = makeItem;
        this.items = [];
        this.filled = 0;
        this.end = element('li', { 'aria-hidden': 'true' });
        this.watcher = new IntersectionObserver((seen) => {
            if (seen.some((entry) => entry.isIntersecting)) {
                this.fillTo(this.filled + 100);
            }
        });
        this.watcher.observe(this.end);
    }

    show(items) {
        this.items = items;
        this.filled = 0;
        this.container.replaceChildren(this.end);
        this.fillTo(100);
    }

    fillTo(count) {
        const last = Math.min(count, this.items.length);
        for (; this.filled < last; ++this.filled) {
            this.end.before(this.makeItem(this.items[this.filled], this.filled));
        }
        this.end.hidden = this.filled === this.items.length;
    }
}
