// What the reader has chosen: filters, layers, what is marked and what is pointed at. Whoever shows
// any of it is told of each change.

class State {
    constructor(model) {
        this.model = model;
        this.severities = new Set(Object.keys(SEVERITIES));
        this.code = '';
        this.system = '';
        this.hiddenSystems = new Set();
        this.hiddenParts = new Set();
        this.selected = null; // finding
        this.spot = null; // { at, items }: the marked place and entities
        this.pointed = null; // pipe, node or finding under the pointer
        this.litNetwork = -1;
        this.listeners = [];
        this.filterEdition = 0; // grows when other findings are shown
        this.filter();
    }

    listen(listener) {
        this.listeners.push(listener);
    }

    tell() {
        this.listeners.forEach((listener) => listener());
    }

    /** Whether the finding passes the filters; the one called `except` is not asked. */
    passes(finding, except = '') {
        return (
            (except === 'severity' || this.severities.has(finding.severity)) &&
            (except === 'code' || this.code === '' || finding.code === this.code) &&
            (except === 'system' || this.system === '' || String(finding.system) === this.system)
        );
    }

    filter() {
        this.shown = this.model.findings.filter((finding) => this.passes(finding));
        this.filterEdition += 1;
    }

    setFilter(change) {
        Object.assign(this, change);
        this.filter();
        this.tell();
    }

    toggleSeverity(severity) {
        const severities = new Set(this.severities);
        if (!severities.delete(severity)) {
            severities.add(severity);
        }
        this.setFilter({ severities });
    }

    clearFilters() {
        this.setFilter({ severities: new Set(Object.keys(SEVERITIES)), code: '', system: '' });
    }

    get isFiltered() {
        return this.shown.length < this.model.findings.length;
    }

    showSystem(system, isShown) {
        this.hiddenSystems[isShown ? 'delete' : 'add'](system);
        this.tell();
    }

    showPart(part, isShown) {
        this.hiddenParts[isShown ? 'delete' : 'add'](part);
        this.tell();
    }

    showsItem(item) {
        return !this.hiddenSystems.has(item.system);
    }

    showsPart(part) {
        return !this.hiddenParts.has(part);
    }

    /** The findings whose marks the picture carries. */
    get markedFindings() {
        if (!this.showsPart('findings')) {
            return [];
        }
        return this.shown.filter((finding) => finding.at !== null && this.showsItem(finding));
    }

    /** Marks the finding in list and picture; its system is switched on, so that it can be seen. */
    select(finding) {
        this.selected = finding;
        this.hiddenSystems.delete(finding.system);
        const at = this.model.placeOf(finding);
        this.spot = at === null ? null : { at, items: this.model.entitiesOf(finding) };
        this.litNetwork = -1;
        this.tell();
    }

    markItem(item) {
        this.selected = null;
        this.hiddenSystems.delete(item.system);
        this.spot = { at: item.at ?? middleOf(item.points), items: [item] };
        this.litNetwork = item.network;
        this.tell();
    }

    markPlace(at, items) {
        this.selected = null;
        this.spot = { at, items };
        this.litNetwork = -1;
        this.tell();
    }

    lightNetwork(network) {
        this.litNetwork = network;
        this.tell();
    }

    clearMarks() {
        this.selected = this.spot = null;
        this.litNetwork = -1;
        this.tell();
    }

    point(target) {
        if (target !== this.pointed) {
            this.pointed = target;
            this.tell();
        }
    }

    /** The network to be lit: that of what is pointed at, else the one chosen; -1 for none. */
    get network() {
        const pointed = this.pointed?.kind ? this.pointed.network : -1;
        return pointed >= 0 ? pointed : this.litNetwork;
    }
}

/** The point half the way along. */
function middleOf(points) {
    let left = 0;
    for (let i = 2; i < points.length; i += 2) {
        left += Math.hypot(points[i] - points[i - 2], points[i + 1] - points[i - 1]);
    }
    left /= 2;
    for (let i = 2; i < points.length; i += 2) {
        const [dx, dy] = [points[i] - points[i - 2], points[i + 1] - points[i - 1]];
        const length = Math.hypot(dx, dy);
        if (length >= left && length > 0) {
            return [points[i - 2] + (dx * left) / length, points[i - 1] + (dy * left) / length];
        }
        left -= length;
    }
    return [points[0], points[1]];
}
