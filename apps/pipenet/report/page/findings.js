// The list of findings and its filters. An entry leads to its place, a mark leads to its entry.

const MOST_HANDLES = 24;

const LIST_STEPS = {
    ArrowDown: 1,
    ArrowUp: -1,
    PageDown: 8,
    PageUp: -8,
    Home: -Infinity,
    End: Infinity,
};

class FindingList {
    constructor(model, state, picture) {
        this.model = model;
        this.state = state;
        this.picture = picture;
        this.container = byId('finding-list');
        this.list = new LongList(this.container, (finding) => this.makeEntry(finding));
        this.container.addEventListener('keydown', (event) => this.key(event));
        state.listen(() => this.update());
        this.setUpFilters();
        this.update();
    }

    // -- entries -------------------------------------------------------------------------------

    makeEntry(finding) {
        const main = element(
            'button',
            { type: 'button', tabindex: -1, id: `finding-${finding.index + 1}` },
            severityMark(finding.severity),
            element('span', { class: 'code' }, finding.code),
            element('span', { class: 'number' }, String(finding.index + 1)),
            element('span', { class: 'unseen' }, SEVERITIES[finding.severity].one),
            element('span', { class: 'sentence' }, finding.sentence),
            valuesOf(finding),
        );
        main.addEventListener('click', () => this.go(finding));
        const entry = element(
            'li',
            { class: `finding ${finding.severity}` },
            main,
            this.handlesOf(finding),
        );
        markSelected(entry, finding === this.state.selected);
        return entry;
    }

    handlesOf(finding) {
        const handles = finding.handles.slice(0, MOST_HANDLES).map((handle) =>
            this.model.byHandle.has(handle)
                ? button(handle, () => goToEntity(this.picture, this.state, handle), {
                      tabindex: -1,
                      title: `Show entity ${handle}`,
                  })
                : element('span', {}, handle),
        );
        const name = element('span', { class: 'system' }, finding.systemName);
        const more = finding.handles.length - handles.length;
        if (more > 0) {
            handles.push(element('span', {}, `and ${figure.format(more)} more`));
        }
        return element('div', { class: 'handles' }, name, ...handles);
    }

    go(finding) {
        this.state.select(finding);
        this.picture.showFinding(finding);
        announce(
            this.model.placeOf(finding) === null
                ? `${finding.name} has no place in the picture`
                : `The picture shows ${finding.name}`,
        );
    }

    /** Brings the entry into sight, lifting filters that hide it, and gives it the focus. */
    reveal(finding) {
        showTab('findings');
        if (!this.state.shown.includes(finding)) {
            this.state.clearFilters();
        }
        const place = this.state.shown.indexOf(finding);
        this.list.fillTo(place + 1);
        this.focus(place);
        announce(`${finding.name}: ${finding.sentence}`);
    }

    // -- keys ----------------------------------------------------------------------------------

    buttonAt(place) {
        return this.container.children[place]?.querySelector('button') ?? null;
    }

    focus(place) {
        const wanted = this.buttonAt(place);
        if (wanted) {
            this.setTabStop(wanted);
            wanted.focus({ preventScroll: true });
            wanted.parentElement.scrollIntoView({ block: 'nearest' });
        }
    }

    tabStop() {
        return this.container.querySelector('.finding > button[tabindex="0"]');
    }

    /** One entry at a time can be reached by Tab; the arrows lead to the others. */
    setTabStop(wanted) {
        this.tabStop()?.setAttribute('tabindex', -1);
        wanted.setAttribute('tabindex', 0);
    }

    key(event) {
        const entry = event.target.closest('.finding');
        const step = LIST_STEPS[event.key];
        if (!entry || step === undefined) {
            return;
        }
        event.preventDefault();
        const last = this.state.shown.length - 1;
        const here = [...this.container.children].indexOf(entry);
        const place = Math.min(last, Math.max(0, here + step));
        this.list.fillTo(place + 1);
        this.focus(place);
    }

    // -- filters -------------------------------------------------------------------------------

    setUpFilters() {
        for (const severity of Object.keys(SEVERITIES)) {
            byId('severities').append(
                button(severityMark(severity), () => this.state.toggleSeverity(severity), {
                    class: severity,
                    'data-severity': severity,
                }),
            );
        }
        const choose = (id, key) =>
            byId(id).addEventListener('change', (event) => {
                this.state.setFilter({ [key]: event.target.value });
            });
        choose('filter-code', 'code');
        choose('filter-system', 'system');
        byId('filter-clear').addEventListener('click', () => {
            this.state.clearFilters();
            byId('filter-code').focus();
        });
    }

    count(except, key) {
        const counts = new Map();
        for (const finding of this.model.findings) {
            if (this.state.passes(finding, except)) {
                const value = String(finding[key]);
                counts.set(value, (counts.get(value) ?? 0) + 1);
            }
        }
        return counts;
    }

    updateSeverities() {
        const counts = this.count('severity', 'severity');
        for (const toggle of byId('severities').children) {
            const { one, many } = SEVERITIES[toggle.dataset.severity];
            const count = counts.get(toggle.dataset.severity) ?? 0;
            toggle.setAttribute('aria-pressed', this.state.severities.has(toggle.dataset.severity));
            toggle.replaceChildren(toggle.firstElementChild, counted(count, one, many));
        }
    }

    updateSelect(id, key, all, nameOf) {
        const counts = this.count(key, key);
        const values = [...new Set(this.model.findings.map((finding) => String(finding[key])))];
        const options = values.sort().map((value) => {
            const count = figure.format(counts.get(value) ?? 0);
            return element('option', { value }, `${nameOf(value)} (${count})`);
        });
        byId(id).replaceChildren(element('option', { value: '' }, all), ...options);
        byId(id).value = this.state[key];
    }

    // -- keeping up ----------------------------------------------------------------------------

    update() {
        if (this.edition !== this.state.filterEdition) {
            this.edition = this.state.filterEdition;
            this.updateFilters();
            this.list.show(this.state.shown);
            this.showEmpty();
            this.selected = this.state.selected;
        }
        if (this.selected !== this.state.selected) {
            this.markEntry(this.selected, false);
            this.selected = this.state.selected;
            this.markEntry(this.selected, true);
        }
        this.keepTabStop();
    }

    updateFilters() {
        const { model, state } = this;
        this.updateSeverities();
        this.updateSelect('filter-code', 'code', 'All codes', (code) => code);
        this.updateSelect('filter-system', 'system', 'All systems', (system) =>
            model.systemName(Number(system)),
        );
        const all = counted(model.findings.length, 'finding', 'findings');
        const shown = figure.format(state.shown.length);
        byId('shown').textContent = state.isFiltered ? `${shown} of ${all} shown` : all;
        byId('filter-clear').hidden = !state.isFiltered;
    }

    showEmpty() {
        if (this.state.shown.length === 0) {
            const text = this.state.isFiltered
                ? 'No finding passes the filters.'
                : 'Nothing was found amiss in this drawing.';
            this.container.prepend(element('li', { class: 'empty' }, text));
        }
    }

    markEntry(finding, isSelected) {
        const entry = finding && byId(`finding-${finding.index + 1}`)?.parentElement;
        if (entry) {
            markSelected(entry, isSelected);
        }
    }

    keepTabStop() {
        if (!this.tabStop()) {
            this.buttonAt(0)?.setAttribute('tabindex', 0);
        }
    }
}

/** The handles of an entry can be reached by Tab while it is the selected one. */
function markSelected(entry, isSelected) {
    entry.classList.toggle('selected', isSelected);
    if (isSelected) {
        entry.firstElementChild.setAttribute('aria-current', 'true');
    } else {
        entry.firstElementChild.removeAttribute('aria-current');
    }
    entry.querySelectorAll('.handles button').forEach((handle) => {
        handle.setAttribute('tabindex', isSelected ? 0 : -1);
    });
}

function withUnit(value, unit) {
    const gap = unit === '' || unit === '°' ? '' : ' ';
    return `${figure.format(value)}${gap}${unit}`;
}

function valuesOf(finding) {
    if (finding.measured === null) {
        return null;
    }
    const values = element('span', { class: 'values' }, 'Measured ');
    values.append(element('b', {}, withUnit(finding.measured, finding.unit)));
    if (finding.limit !== null) {
        values.append(', limit ', withUnit(finding.limit, finding.unit));
    }
    return values;
}
