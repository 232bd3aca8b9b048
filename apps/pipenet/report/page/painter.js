// Draws the picture. What has one colour is drawn in one stroke, and what cannot be seen is left
// out, so that a drawing of many thousand pipes moves smoothly.

const LEAST_SYMBOL_SPACING = 16; // pixels of a typical pipe from which wells are drawn
const LEAST_LABEL_SPACING = 44;
const LEAST_ARROW_RUN = 34;
const LEAST_SIZE_RUN = 110;
const LEAST_NODE_RADIUS = 3.2;

const MARK_OUTLINES = Object.fromEntries(
    Object.entries(SEVERITIES).map(([name, { outline }]) => [name, new Path2D(outline)]),
);

class Painter {
    constructor(canvas, model, state, colours) {
        this.canvas = canvas;
        this.context = canvas.getContext('2d');
        this.model = model;
        this.state = state;
        this.colours = colours;
        this.groups = [];
        this.isOnPaper = false;
        this.font = getComputedStyle(document.body).fontFamily;
        this.layers = groupedBySystem(model);
    }

    /** Draws what the view shows; `ratio` is the number of the canvas's dots for one pixel. */
    paint(view, ratio) {
        this.view = view;
        this.context.setTransform(ratio, 0, 0, ratio, 0, 0);
        this.context.fillStyle = this.colours.get('--paper');
        this.context.fillRect(0, 0, view.width, view.height);
        this.spacing = this.model.typicalLength * view.scale;
        this.paintSpotEntities();
        this.paintPipes();
        this.paintRuns();
        this.paintNodes();
        this.groups = groupMarks(view, this.state.markedFindings);
        this.paintLabels();
        this.paintMarks();
        this.paintSpot();
    }

    visibleLayers() {
        return this.layers.filter((layer) => !this.state.hiddenSystems.has(layer.system));
    }

    trace(points) {
        const { context, view } = this;
        context.moveTo(view.screenX(points[0]), view.screenY(points[1]));
        for (let i = 2; i < points.length; i += 2) {
            context.lineTo(view.screenX(points[i]), view.screenY(points[i + 1]));
        }
    }

    strokePipes(pipes, colour, width, dash = []) {
        const { context, view } = this;
        context.strokeStyle = colour;
        context.lineWidth = width;
        context.lineJoin = context.lineCap = 'round';
        context.setLineDash(dash);
        context.beginPath();
        for (const pipe of pipes) {
            if (view.shows(pipe.box, width)) {
                this.trace(pipe.points);
            }
        }
        context.stroke();
        context.setLineDash([]);
    }

    pipeWidth() {
        return Math.min(2.4, Math.max(1.2, this.spacing / 20));
    }

    paintPipes() {
        const { context, state } = this;
        const width = this.pipeWidth();
        context.globalAlpha = state.network >= 0 ? 0.3 : 1;
        for (const layer of this.visibleLayers()) {
            const colour = this.colours.system(layer.system);
            this.strokePipes(layer.joined, colour, layer.system < 0 ? 1 : width);
            this.strokePipes(layer.loose, colour, width, [5, 4]);
        }
        context.globalAlpha = 1;
        this.paintLitNetwork(width);
    }

    paintLitNetwork(width) {
        const network = this.state.network;
        if (network < 0) {
            return;
        }
        for (const layer of this.visibleLayers()) {
            const pipes = layer.joined.filter((pipe) => pipe.network === network);
            if (pipes.length > 0) {
                this.strokePipes(pipes, this.colours.system(layer.system), width + 1.6);
            }
        }
    }

    // -- along the runs ------------------------------------------------------------------------

    paintRuns() {
        const { state, view } = this;
        const scale = view.scale / this.model.metresPerUnit;
        this.shownRuns = this.model.runs.filter(
            (run) =>
                run.arrow !== null &&
                run.length * scale >= LEAST_ARROW_RUN &&
                state.showsItem(run) &&
                this.isInView(run.arrow, 40),
        );
        if (state.showsPart('arrows')) {
            this.shownRuns.forEach((run) => this.paintArrow(run));
        }
    }

    isInView([x, y], around) {
        const [px, py] = [this.view.screenX(x), this.view.screenY(y)];
        return (
            px > -around &&
            py > -around &&
            px < this.view.width + around &&
            py < this.view.height + around
        );
    }

    isFaded(item) {
        return this.state.network >= 0 && item.network !== this.state.network;
    }

    /** Draws what `paint` draws around the middle of the run, turned as told. */
    alongRun(run, turn, paint) {
        const { context, view } = this;
        context.save();
        context.globalAlpha = this.isFaded(run) ? 0.3 : 1;
        context.translate(view.screenX(run.arrow[0]), view.screenY(run.arrow[1]));
        context.rotate(turn);
        paint(context);
        context.restore();
    }

    paintArrow(run) {
        this.alongRun(run, -run.arrow[2], (context) => {
            context.fillStyle = this.colours.system(run.system);
            context.fill(ARROW);
        });
    }

    paintSize(run) {
        this.alongRun(run, readableTurn(run), (context) => {
            context.textAlign = 'center';
            this.paintText(`DN${run.diameter}`, 0, -8, 11, '--faint');
        });
    }

    paintText(text, x, y, size, colour) {
        const { context } = this;
        context.font = `${size}px ${this.font}`;
        context.lineWidth = 3;
        context.lineJoin = 'round';
        context.strokeStyle = this.colours.get('--paper');
        context.strokeText(text, x, y);
        context.fillStyle = this.colours.get(colour);
        context.fillText(text, x, y);
    }

    // -- nodes ---------------------------------------------------------------------------------

    visibleNodes() {
        const { state, view } = this;
        return this.model.nodes.filter(
            (node) => state.showsItem(node) && view.shows(node.box, 12),
        );
    }

    paintNodes() {
        const isFar = this.spacing < LEAST_SYMBOL_SPACING;
        this.shownNodes = this.visibleNodes().filter((node) => !isFar || node.kind === 'tank');
        for (const node of this.shownNodes) {
            this.context.globalAlpha = this.isFaded(node) ? 0.3 : 1;
            this.paintNode(node);
        }
        this.context.globalAlpha = 1;
    }

    paintNode(node) {
        const { context, view } = this;
        const colour = this.colours.system(node.system);
        context.lineWidth = 1.5;
        context.strokeStyle = colour;
        context.fillStyle = this.colours.get('--paper');
        context.beginPath();
        this.traceNode(node, view.screenX(node.at[0]), view.screenY(node.at[1]));
        if (node.kind === 'junction' || node.kind === 'valve') {
            context.fillStyle = colour;
        }
        context.fill();
        if (node.kind === 'tank') {
            this.tint(colour);
        }
        context.stroke();
    }

    tint(colour) {
        const { context } = this;
        const alpha = context.globalAlpha;
        context.globalAlpha = alpha * 0.18;
        context.fillStyle = colour;
        context.fill();
        context.globalAlpha = alpha;
    }

    traceNode(node, x, y) {
        const { context, view } = this;
        const radius = Math.max(LEAST_NODE_RADIUS, node.radius * view.scale);
        if (node.kind === 'tank') {
            const box = this.boxOnScreen(node);
            context.rect(...box);
        } else if (node.kind === 'valve') {
            context.moveTo(x - 6, y - 4);
            context.lineTo(x + 6, y + 4);
            context.lineTo(x + 6, y - 4);
            context.lineTo(x - 6, y + 4);
            context.closePath();
        } else {
            context.arc(x, y, node.kind === 'junction' ? 2 : radius, 0, 2 * Math.PI);
            if (node.kind === 'meter') {
                context.moveTo(x - radius * 0.7, y + radius * 0.7);
                context.lineTo(x + radius * 0.7, y - radius * 0.7);
            }
        }
    }

    /** Left, top, width and height; a tank stays large enough to be seen. */
    boxOnScreen(node) {
        const { view } = this;
        const [left, top] = [view.screenX(node.box.left), view.screenY(node.box.top)];
        const width = (node.box.right - node.box.left) * view.scale;
        const height = (node.box.top - node.box.bottom) * view.scale;
        const more = Math.max(0, 9 - Math.min(width, height)) / 2;
        return [left - more, top - more, width + 2 * more, height + 2 * more];
    }

    // -- labels --------------------------------------------------------------------------------

    paintLabels() {
        if (!this.state.showsPart('labels') || this.spacing < LEAST_LABEL_SPACING) {
            return;
        }
        const taken = new Taken();
        this.groups.forEach(({ x, y }) => taken.take(x - 9, y - 9, x + 9, y + 9));
        this.shownNodes.forEach((node) => taken.take(...this.boxOfSymbol(node)));
        this.context.textAlign = 'left';
        for (const node of this.shownNodes) {
            if (node.number) {
                this.context.globalAlpha = this.isFaded(node) ? 0.3 : 1;
                this.paintLabel(node, taken);
            }
        }
        this.context.globalAlpha = 1;
        this.paintSizes(taken);
    }

    paintSizes(taken) {
        const scale = this.view.scale / this.model.metresPerUnit;
        for (const run of this.shownRuns) {
            const isLong = run.diameter > 0 && run.length * scale >= LEAST_SIZE_RUN;
            if (isLong && taken.take(...this.boxOfSize(run))) {
                this.paintSize(run);
            }
        }
    }

    /** Left, top, right and bottom of the size's text beside the arrow. */
    boxOfSize(run) {
        const [across, down] = [Math.cos(readableTurn(run)), Math.sin(readableTurn(run))];
        const x = this.view.screenX(run.arrow[0]) + 12 * down;
        const y = this.view.screenY(run.arrow[1]) - 12 * across;
        const wide = 19 * Math.abs(across) + 6 * Math.abs(down);
        const high = 19 * Math.abs(down) + 6 * Math.abs(across);
        return [x - wide, y - high, x + wide, y + high];
    }

    /** Left, top, right and bottom of the node as it is drawn, on the screen. */
    boxOfSymbol(node) {
        const [x, y] = [this.view.screenX(node.at[0]), this.view.screenY(node.at[1])];
        const half = Math.max(LEAST_NODE_RADIUS, node.radius * this.view.scale);
        return [x - half, y - half, x + half, y + half];
    }

    paintLabel(node, taken) {
        const { context, view } = this;
        context.font = `12px ${this.font}`;
        const width = context.measureText(node.number).width;
        const half = ((node.box.right - node.box.left) * view.scale) / 2;
        const right = view.screenX(node.at[0]) + Math.max(LEAST_NODE_RADIUS, half) + 3;
        const left = 2 * view.screenX(node.at[0]) - right - width;
        const y = view.screenY(node.at[1]);
        const beyondMark = right + MARK_RADIUS;
        const sides = [[right, -5], [right, 14], [left, -5], [left, 14], [beyondMark, -8]];
        for (const [x, down] of sides) {
            if (taken.take(x, y + down - 11, x + width, y + down + 3)) {
                this.paintText(node.number, x, y + down, 12, '--ink');
                return;
            }
        }
    }

    // -- findings and the marked place ---------------------------------------------------------

    paintMarks() {
        for (let i = this.groups.length - 1; i >= 0; --i) {
            this.paintMark(this.groups[i]);
        }
    }

    paintMark({ x, y, findings }) {
        const { context } = this;
        const isPointed = findings.includes(this.state.pointed);
        const shown = findings.includes(this.state.selected) ? this.state.selected : findings[0];
        context.save();
        context.translate(x, y);
        context.scale(isPointed ? 1.2 : 1, isPointed ? 1.2 : 1);
        context.lineWidth = 2.5;
        context.lineJoin = 'round';
        context.strokeStyle = this.colours.get('--paper');
        context.stroke(MARK_OUTLINES[shown.severity]);
        context.fillStyle = this.colours.get(`--${shown.severity}`);
        context.fill(MARK_OUTLINES[shown.severity]);
        context.textAlign = 'left';
        const text = this.isOnPaper ? numbersOf(findings) : countOf(findings);
        this.paintText(text, 9, -5, 11, '--ink');
        context.restore();
    }

    /** The marked entities shine from below the pipes, so that their own colours stay. */
    paintSpotEntities() {
        const { context, state } = this;
        if (state.spot === null) {
            return;
        }
        context.globalAlpha = 0.35;
        const items = state.spot.items.filter((item) => state.showsItem(item));
        const pipes = items.filter((item) => item.kind === 'pipe');
        this.strokePipes(pipes, this.colours.get('--spot'), 11);
        context.fillStyle = this.colours.get('--spot');
        for (const node of items.filter((item) => item.kind !== 'pipe')) {
            const [left, top, width, height] = this.boxOnScreen(node);
            context.beginPath();
            context.roundRect(left - 6, top - 6, width + 12, height + 12, 6);
            context.fill();
        }
        context.globalAlpha = 1;
    }

    paintSpot() {
        const { context, view } = this;
        if (this.state.spot === null) {
            return;
        }
        const [x, y] = this.state.spot.at;
        context.save();
        context.translate(view.screenX(x), view.screenY(y));
        for (const [colour, width] of [['--paper', 5], ['--spot', 2.2]]) {
            context.strokeStyle = this.colours.get(colour);
            context.lineWidth = width;
            context.stroke(RETICLE);
        }
        context.restore();
    }
}

const ARROW = new Path2D('M7 0L-5 4.6L-2.5 0L-5-4.6Z');
const RETICLE = new Path2D(
    'M-17 0A17 17 0 1 1 17 0A17 17 0 1 1-17 0ZM-25 0H-17M17 0H25M0-25V-17M0 17V25',
);

/** How a text along the run is turned so that it is read from below or from the left. */
function readableTurn(run) {
    const [across, up] = [Math.cos(run.arrow[2]), Math.sin(run.arrow[2])];
    const isUpsideDown = across < -1e-6 || (across <= 1e-6 && up < 0);
    return -run.arrow[2] + (isUpsideDown ? Math.PI : 0);
}

function countOf(findings) {
    return findings.length > 1 ? String(findings.length) : '';
}

/** The numbers under which the list has the findings: on paper nothing else leads there. */
function numbersOf(findings) {
    const numbers = findings.slice(0, 3).map((finding) => finding.index + 1);
    return numbers.join(', ') + (findings.length > 3 ? ' …' : '');
}

/** The pipes of each system, those of a network apart from the loose ones; context comes first. */
function groupedBySystem(model) {
    const layers = new Map();
    for (const pipe of model.pipes) {
        if (!layers.has(pipe.system)) {
            layers.set(pipe.system, { system: pipe.system, joined: [], loose: [] });
        }
        const isLoose = pipe.system >= 0 && pipe.network < 0;
        layers.get(pipe.system)[isLoose ? 'loose' : 'joined'].push(pipe);
    }
    return [...layers.values()].sort((a, b) => a.system - b.system);
}

/** Places on the screen that are written on already. */
class Taken {
    constructor() {
        this.cells = new Map();
    }

    /** Takes the box unless it meets another. */
    take(left, top, right, bottom) {
        const box = [left, top, right, bottom];
        const keys = cellsOf(box);
        const isFree = keys.every((key) =>
            (this.cells.get(key) ?? []).every((other) => areApart(box, other)),
        );
        if (isFree) {
            keys.forEach((key) => this.cells.set(key, [...(this.cells.get(key) ?? []), box]));
        }
        return isFree;
    }
}

function cellsOf([left, top, right, bottom]) {
    const keys = [];
    for (let column = Math.floor(left / 64); column <= Math.floor(right / 64); ++column) {
        for (let row = Math.floor(top / 64); row <= Math.floor(bottom / 64); ++row) {
            keys.push(column * 65536 + row);
        }
    }
    return keys;
}

function areApart(a, b) {
    return a[2] < b[0] || b[2] < a[0] || a[3] < b[1] || b[3] < a[1];
}
