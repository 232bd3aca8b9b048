// What the page was given, readied for drawing and for looking things up.

const TURN_OF_A_PIECE = Math.PI / 90;

/** Adds the arc from (x, y) to (endX, endY); `bulge` is the tangent of a quarter of its turn. */
function addArc(points, x, y, bulge, endX, endY) {
    const turn = 4 * Math.atan(bulge);
    const across = (1 - bulge * bulge) / (4 * bulge);
    const centreX = (x + endX) / 2 - across * (endY - y);
    const centreY = (y + endY) / 2 + across * (endX - x);
    const radius = Math.hypot(x - centreX, y - centreY);
    const first = Math.atan2(y - centreY, x - centreX);
    const count = Math.ceil(Math.abs(turn) / TURN_OF_A_PIECE);
    for (let i = 1; i < count; ++i) {
        const angle = first + (turn * i) / count;
        points.push(centreX + radius * Math.cos(angle), centreY + radius * Math.sin(angle));
    }
}

/** x, y, x, y ... along a curve given as x, y, bulge, x, y, bulge, ... x, y. */
function flattened(curve) {
    const points = [curve[0], curve[1]];
    for (let i = 2; i + 2 < curve.length; i += 3) {
        const [bulge, x, y] = [curve[i], curve[i + 1], curve[i + 2]];
        if (bulge !== 0) {
            addArc(points, curve[i - 2], curve[i - 1], bulge, x, y);
        }
        points.push(x, y);
    }
    return Float64Array.from(points);
}

/** A box that grows with what is put into it. */
class Box {
    constructor() {
        this.left = this.bottom = Infinity;
        this.right = this.top = -Infinity;
    }

    add(x, y, around = 0) {
        this.left = Math.min(this.left, x - around);
        this.right = Math.max(this.right, x + around);
        this.bottom = Math.min(this.bottom, y - around);
        this.top = Math.max(this.top, y + around);
    }

    addBox(box) {
        this.add(box.left, box.bottom);
        this.add(box.right, box.top);
    }

    get isEmpty() {
        return this.left > this.right;
    }

    get centre() {
        return [(this.left + this.right) / 2, (this.bottom + this.top) / 2];
    }

    get size() {
        return Math.max(this.right - this.left, this.top - this.bottom);
    }
}

function boxOfPoints(points) {
    const box = new Box();
    for (let i = 0; i < points.length; i += 2) {
        box.add(points[i], points[i + 1]);
    }
    return box;
}

function boxOfNode(node) {
    const box = new Box();
    if (node.box) {
        box.add(node.box[0], node.box[1]);
        box.add(node.box[2], node.box[3]);
    } else {
        box.add(node.at[0], node.at[1], node.radius);
    }
    return box;
}

function median(numbers) {
    const sorted = numbers.filter((number) => number > 0).sort((a, b) => a - b);
    return sorted.length > 0 ? sorted[sorted.length >> 1] : 10;
}

class Model {
    constructor(given) {
        Object.assign(this, given);
        this.pipes.forEach((pipe) => this.readyPipe(pipe));
        this.nodes.forEach((node) => this.readyNode(node));
        this.typicalLength = median(this.pipes.map((pipe) => pipe.box.size));
        this.box = this.boxOf([...this.pipes, ...this.nodes]);
        this.runs.forEach((run) => this.joinRun(run));
        this.findings.forEach((finding, index) => this.numberFinding(finding, index));
        this.byHandle = new Map();
        for (const item of [...this.pipes, ...this.nodes]) {
            if (item.handle !== null) {
                this.byHandle.set(item.handle, item);
            }
        }
    }

    readyPipe(pipe) {
        pipe.kind = 'pipe';
        pipe.points = flattened(pipe.curve);
        pipe.box = boxOfPoints(pipe.points);
        pipe.runs = [];
    }

    readyNode(node) {
        node.box = boxOfNode(node);
    }

    joinRun(run) {
        run.pipes.forEach((pipe) => this.pipes[pipe].runs.push(run));
    }

    numberFinding(finding, index) {
        finding.index = index;
        finding.name = `${SEVERITIES[finding.severity].one} ${index + 1}, ${finding.code}`;
    }

    boxOf(items) {
        const box = new Box();
        items.forEach((item) => box.addBox(item.box));
        return box;
    }

    /** The pipes and nodes of the network, or of the whole system. */
    members(key, value) {
        return [...this.pipes, ...this.nodes].filter((item) => item[key] === value);
    }

    entitiesOf(finding) {
        return finding.handles.map((handle) => this.byHandle.get(handle)).filter(Boolean);
    }

    /** Where the finding is: its own place, else the middle of what it speaks of; null for none. */
    placeOf(finding) {
        if (finding.at !== null) {
            return finding.at;
        }
        const box = this.boxOf(this.entitiesOf(finding));
        return box.isEmpty ? null : box.centre;
    }

    systemName(index) {
        return index < 0 ? 'no checked system' : this.systems[index].name || 'without a name';
    }

    /** What a reader calls the entity. */
    nameOf(item) {
        const kind = item.kind[0].toUpperCase() + item.kind.slice(1);
        const number = item.number ? ` ${item.number}` : '';
        return `${kind}${number}${item.handle === null ? '' : ` (${item.handle})`}`;
    }

    /** At most `most` entities whose handle or number is the text, begins with it or has it. */
    search(text, most) {
        const wanted = text.trim().toLowerCase();
        const ranked = [[], [], []];
        for (const item of wanted === '' ? [] : this.byHandle.values()) {
            const rank = Math.min(rankOf(item.handle, wanted), rankOf(item.number, wanted));
            if (rank < ranked.length) {
                ranked[rank].push(item);
            }
        }
        return ranked.flat().slice(0, most);
    }
}

function rankOf(text, wanted) {
    const place = text ? text.toLowerCase().indexOf(wanted) : -1;
    if (place < 0) {
        return Infinity;
    }
    return place > 0 ? 2 : text.length === wanted.length ? 0 : 1;
}

function readModel() {
    return new Model(JSON.parse(byId('report-data').textContent));
}
