// The figures of each system, and the switches of the layers.

function fact(name, value) {
    return element('div', {}, element('dt', {}, name), element('dd', {}, value));
}

class SystemFigures {
    constructor(model, state, picture) {
        this.model = model;
        this.state = state;
        this.picture = picture;
        const sections = model.systems.map((system, index) => this.makeSection(system, index));
        byId('systems').append(...sections);
        if (model.systems.length === 0) {
            byId('systems').append(element('p', { class: 'empty' }, 'The drawing has no systems.'));
        }
        state.listen(() => this.update());
    }

    makeSection(system, index) {
        const section = element(
            'section',
            { class: 'figures', style: `--colour: var(${systemVariable(index)})` },
            element(
                'h2',
                {},
                element('span', { class: 'swatch' }),
                this.model.systemName(index),
                element('small', {}, flowOf(system)),
            ),
            this.makeFacts(system, index),
            lengthsTable(system),
            this.makeExtremes(system),
            this.makeNetworks(index),
        );
        return section;
    }

    makeFacts(system, index) {
        const findings = this.model.findings.filter((finding) => finding.system === index).length;
        return element(
            'dl',
            { class: 'facts' },
            fact('Length', `${metre.format(system.length)} m`),
            fact('Networks', figure.format(system.networks)),
            fact('Pipes', figure.format(system.pipes)),
            fact('Wells', figure.format(system.wells)),
            fact('Tanks', figure.format(system.tanks)),
            fact('Findings', figure.format(findings)),
        );
    }

    makeExtremes(system) {
        const extremes = [
            ['Lowest', system.lowest],
            ['Highest', system.highest],
        ].filter(([, extreme]) => extreme !== null);
        if (extremes.length === 0) {
            return null;
        }
        return element(
            'dl',
            { class: 'extremes' },
            ...extremes.map(([name, extreme]) => fact(name, this.makeExtreme(name, extreme))),
        );
    }

    makeExtreme(name, extreme) {
        const pipe = this.model.byHandle.get(extreme.handle);
        return button(
            `${height.format(extreme.elevation)} m`,
            () => {
                const at = extreme.at ?? (pipe ? pipe.box.centre : null);
                if (at !== null) {
                    this.state.markPlace(at, pipe ? [pipe] : []);
                    this.picture.goTo(at);
                }
            },
            { class: 'quiet', title: `${name} elevation, pipe ${extreme.handle}` },
        );
    }

    makeNetworks(index) {
        const networks = this.model.networks.filter((network) => network.system === index);
        const container = element('ul', {});
        const details = element(
            'details',
            { class: 'networks' },
            element('summary', {}, counted(networks.length, 'network', 'networks')),
            container,
        );
        const list = new LongList(container, (network) => this.makeNetwork(network));
        details.addEventListener('toggle', () => list.show(details.open ? networks : []));
        return networks.length > 0 ? details : null;
    }

    makeNetwork(network) {
        const length = `${metre.format(network.length)} m`;
        const nodes = counted(network.nodes, 'node', 'nodes');
        const runs = counted(network.runs, 'run', 'runs');
        const lit = button(`Network ${network.index + 1}`, () => this.light(network.index), {
            'data-network': network.index,
            'aria-pressed': String(this.state.litNetwork === network.index),
        });
        lit.append(element('span', {}, `${nodes}, ${runs}, ${length}`));
        return element('li', {}, lit);
    }

    light(network) {
        const isLit = this.state.litNetwork === network;
        this.state.lightNetwork(isLit ? -1 : network);
        if (!isLit) {
            this.picture.view.flyToBox(this.model.boxOf(this.model.members('network', network)));
            announce(`The picture shows network ${network + 1}`);
        }
    }

    update() {
        byId('systems')
            .querySelectorAll('[data-network]')
            .forEach((lit) => {
                const isLit = Number(lit.dataset.network) === this.state.litNetwork;
                lit.setAttribute('aria-pressed', isLit);
            });
    }
}

const FLOWS = { gravity: 'by gravity', pressure: 'under pressure', unknown: 'flow not known' };

function flowOf(system) {
    return [FLOWS[system.flow], system.flag].filter((text) => text !== '').join(' · ');
}

function lengthsTable(system) {
    if (system.lengths.length === 0) {
        return null;
    }
    const longest = Math.max(...system.lengths.map((laid) => laid.length));
    const head = element(
        'tr',
        {},
        ...['Size', 'Material'].map((name) => element('th', { scope: 'col' }, name)),
        element('th', { scope: 'col', class: 'right' }, 'Runs'),
        element('td', {}),
        element('th', { scope: 'col', class: 'right' }, 'Length'),
    );
    return element(
        'table',
        {},
        element('caption', {}, 'Laid by size and material'),
        element('thead', {}, head),
        element('tbody', {}, ...system.lengths.map((laid) => lengthsRow(laid, longest))),
    );
}

function lengthsRow(laid, longest) {
    const part = longest > 0 ? (100 * laid.length) / longest : 0;
    const bar = element('span', { class: 'share', style: `--part: ${part.toFixed(1)}%` });
    return element(
        'tr',
        {},
        element('td', {}, laid.diameter > 0 ? `DN${laid.diameter}` : '–'),
        element('td', {}, laid.material || '–'),
        element('td', { class: 'right' }, figure.format(laid.runs)),
        element('td', { class: 'right' }, bar),
        element('td', { class: 'right' }, `${metre.format(laid.length)} m`),
    );
}

function layerGroup(name, switches) {
    const attributes = { class: 'layer-group', role: 'group', 'aria-label': name };
    return element('div', attributes, ...switches);
}

/** A switch for each system and for each kind of sign in the picture. */
class LayerSwitches {
    constructor(model, state) {
        this.state = state;
        this.systems = new Map();
        const systems = model.systems.map((system, index) => this.makeSystem(model, system, index));
        if (model.pipes.some((pipe) => pipe.system < 0)) {
            systems.push(this.makeOthers(model));
        }
        const signs = [
            this.makePart('findings', 'Findings'),
            this.makePart('arrows', 'Flow arrows'),
            this.makePart('labels', 'Labels'),
        ];
        byId('layer-switches').append(
            layerGroup('Systems', systems),
            layerGroup('Signs', signs),
        );
        state.listen(() => this.update());
    }

    makeSwitch(name, count, swatch, onChange) {
        const input = element('input', { type: 'checkbox' });
        input.checked = true;
        input.addEventListener('change', () => onChange(input.checked));
        const label = element('label', { class: 'layer' }, input, swatch, name, count);
        return { input, label };
    }

    makeSystem(model, system, index) {
        return this.makeSystemSwitch(index, model.systemName(index), system.pipes);
    }

    makeOthers(model) {
        const others = model.pipes.filter((pipe) => pipe.system < 0).length;
        return this.makeSystemSwitch(-1, 'Other pipes', others);
    }

    makeSystemSwitch(index, name, pipes) {
        const swatch = element('span', {
            class: 'swatch',
            style: `--colour: var(${systemVariable(index)})`,
        });
        const count = element('span', { class: 'count' }, figure.format(pipes));
        const { input, label } = this.makeSwitch(name, count, swatch, (isShown) =>
            this.state.showSystem(index, isShown),
        );
        input.dataset.system = index;
        this.systems.set(index, input);
        return label;
    }

    makePart(part, name) {
        const { input, label } = this.makeSwitch(name, null, null, (isShown) =>
            this.state.showPart(part, isShown),
        );
        input.dataset.part = part;
        return label;
    }

    update() {
        for (const [system, input] of this.systems) {
            input.checked = !this.state.hiddenSystems.has(system);
        }
    }
}
