// The picture: keeps canvas, view and painter together and says what is under the pointer.

const PAN_STEP = 80; // pixels
const ZOOM_STEP = 1.5;
const PRINTED_WIDTH = 1500;
const PRINTED_HEIGHT = 950;
const PRINTED_RATIO = 2;

class Picture {
    constructor(model, state, colours) {
        this.model = model;
        this.state = state;
        this.canvas = byId('canvas');
        this.view = new Viewport(model.box, () => this.redraw());
        this.painter = new Painter(this.canvas, model, state, colours);
        this.frame = 0;
        this.onMarkChosen = () => {};
        this.view.resize(this.canvas.clientWidth, this.canvas.clientHeight);
        this.view.fit();
        this.draw();
        new ResizeObserver(() => this.resize()).observe(byId('picture'));
        state.listen(() => this.redraw());
        this.listenToButtons();
        byId('no-drawing').hidden = !model.box.isEmpty;
    }

    listenToButtons() {
        byId('zoom-in').addEventListener('click', () => this.view.zoom(ZOOM_STEP));
        byId('zoom-out').addEventListener('click', () => this.view.zoom(1 / ZOOM_STEP));
        byId('zoom-all').addEventListener('click', () => this.showAll());
        byId('canvas').addEventListener('dblclick', (event) => {
            this.view.zoomAt(event.offsetX, event.offsetY, ZOOM_STEP * ZOOM_STEP);
        });
    }

    showAll() {
        this.view.flyToBox(this.model.box);
    }

    /** A picture of the whole drawing stays one; any other keeps its middle and its scale. */
    resize() {
        const wasWhole = this.view.isWhole;
        this.view.resize(this.canvas.clientWidth, this.canvas.clientHeight);
        if (wasWhole) {
            this.view.fit();
        }
        this.draw();
    }

    redraw() {
        if (this.frame === 0) {
            this.frame = requestAnimationFrame(() => this.draw());
        }
    }

    draw() {
        cancelAnimationFrame(this.frame);
        this.frame = 0;
        this.paint(window.devicePixelRatio || 1);
        const { x, y, scale } = this.view;
        this.canvas.dataset.view = [x, y, scale].join(' ');
        this.showScale();
    }

    paint(ratio) {
        this.canvas.width = Math.round(this.view.width * ratio);
        this.canvas.height = Math.round(this.view.height * ratio);
        this.painter.paint(this.view, ratio);
    }

    /** A bar of a round number of metres; its share of the width holds on paper as well. */
    showScale() {
        const pixelsOfMetre = this.view.scale / this.model.metresPerUnit;
        const longest = 150 / pixelsOfMetre;
        const power = 10 ** Math.floor(Math.log10(longest));
        const metres = [5, 2, 1].find((factor) => factor * power <= longest) * power;
        const bar = byId('scale-bar');
        bar.style.width = `${(100 * metres * pixelsOfMetre) / this.view.width}%`;
        bar.firstElementChild.textContent =
            metres < 0.01 ? `${figure.format(metres * 1000)} mm` : `${figure.format(metres)} m`;
    }

    // -- going to places -----------------------------------------------------------------------

    /**
     * How much of the drawing is worth seeing around a finding, in drawing units: a gap is to be
     * seen as one, anything else with all that the finding speaks of.
     */
    spanAround(finding, at) {
        const typical = this.model.typicalLength;
        if (finding.unit === 'm' && finding.measured > 0) {
            const fault = finding.measured / this.model.metresPerUnit;
            return Math.min(4 * typical, Math.max(typical, fault * 20));
        }
        const reach = reachOf(this.model.boxOf(this.model.entitiesOf(finding)), at);
        return Math.max(1.5 * typical, 2.2 * reach);
    }

    /** Moves to the place; a view that is near enough already keeps its scale. */
    goTo([x, y], span = 3 * this.model.typicalLength) {
        const wanted = Math.min(this.view.width, this.view.height) / span;
        const isNear = this.view.scale >= wanted && this.view.scale <= 2 * wanted;
        this.view.flyTo(x, y, isNear ? this.view.scale : wanted);
    }

    showFinding(finding) {
        const at = this.model.placeOf(finding);
        if (at !== null) {
            this.goTo(at, this.spanAround(finding, at));
        }
    }

    // -- under the pointer ---------------------------------------------------------------------

    targetAt(px, py) {
        const group = marksAt(this.painter.groups, px, py);
        return group
            ? nextInGroup(group, this.state.selected)
            : entityAt(this.model, this.state, this.view, px, py);
    }

    pointAt(place) {
        const target = place === null ? null : this.targetAt(place.x, place.y);
        this.canvas.classList.toggle('pointing', target !== null);
        this.state.point(target);
        showTip(this.model, target, place, this.view);
    }

    choose(px, py) {
        const target = this.targetAt(px, py);
        if (target === null) {
            this.state.clearMarks();
        } else if (target.kind) {
            this.state.markItem(target);
            showTip(this.model, target, { x: px, y: py }, this.view);
            announce(linesAbout(this.model, target).join(', '));
        } else {
            this.state.select(target);
            this.onMarkChosen(target);
        }
    }

    // -- on paper ------------------------------------------------------------------------------

    /** Draws the whole drawing as large as a page is wide, then puts back what was seen. */
    setUpPrinting(colours) {
        let kept = null;
        window.addEventListener('beforeprint', () => {
            kept = { ...this.view, theme: document.documentElement.dataset.theme };
            document.documentElement.dataset.theme = 'light';
            colours.forget();
            this.view.resize(PRINTED_WIDTH, PRINTED_HEIGHT);
            this.view.fit();
            cancelAnimationFrame(this.frame);
            this.painter.isOnPaper = true;
            this.paint(PRINTED_RATIO);
            this.showScale();
        });
        window.addEventListener('afterprint', () => {
            const { theme, ...view } = kept;
            Object.assign(this.view, view);
            delete document.documentElement.dataset.theme;
            if (theme) {
                document.documentElement.dataset.theme = theme;
            }
            colours.forget();
            this.painter.isOnPaper = false;
            this.resize();
        });
    }
}

/** How far the box reaches from the place; 0 for an empty box. */
function reachOf(box, [x, y]) {
    return Math.max(0, x - box.left, box.right - x, y - box.bottom, box.top - y);
}
