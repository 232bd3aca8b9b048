// The page by keyboard alone.

class PictureKeys {
    constructor(picture, state, list) {
        this.picture = picture;
        this.state = state;
        this.list = list;
        picture.canvas.addEventListener('keydown', (event) => this.press(event));
        document.addEventListener('keydown', (event) => focusSearch(event));
    }

    press(event) {
        if (event.ctrlKey || event.metaKey || event.altKey) {
            return;
        }
        const act = this.actions(event.shiftKey ? 4 * PAN_STEP : PAN_STEP)[event.key.toLowerCase()];
        if (act) {
            event.preventDefault();
            act();
        }
    }

    actions(step) {
        const { view } = this.picture;
        return {
            arrowleft: () => view.panBy(step, 0),
            arrowright: () => view.panBy(-step, 0),
            arrowup: () => view.panBy(0, step),
            arrowdown: () => view.panBy(0, -step),
            '+': () => view.zoom(ZOOM_STEP),
            '=': () => view.zoom(ZOOM_STEP),
            '-': () => view.zoom(1 / ZOOM_STEP),
            0: () => this.picture.showAll(),
            n: () => this.step(1),
            p: () => this.step(-1),
            enter: () => this.state.selected && this.list.reveal(this.state.selected),
            escape: () => this.state.clearMarks(),
        };
    }

    /** Goes to the next finding that the filters show, round and round. */
    step(by) {
        const { shown, selected } = this.state;
        if (shown.length > 0) {
            const here = shown.indexOf(selected);
            const next = here < 0 && by < 0 ? shown.length - 1 : here + by;
            this.list.go(shown[(next + shown.length) % shown.length]);
        }
    }
}

function focusSearch(event) {
    const isWriting = event.target.matches('input[type="search"], select');
    if (event.key === '/' && !isWriting) {
        event.preventDefault();
        byId('search').focus();
    }
}

/** Tabs as readers of the keyboard know them: the arrows go from one to the other. */
function setUpTabs() {
    for (const name of ['findings', 'systems']) {
        byId(`tab-${name}`).addEventListener('click', () => showTab(name));
        byId(`tab-${name}`).addEventListener('keydown', (event) => {
            if (event.key === 'ArrowLeft' || event.key === 'ArrowRight') {
                const other = name === 'findings' ? 'systems' : 'findings';
                showTab(other);
                byId(`tab-${other}`).focus();
            }
        });
    }
}

function showTab(wanted) {
    for (const name of ['findings', 'systems']) {
        const isWanted = name === wanted;
        byId(name).hidden = !isWanted;
        byId(`tab-${name}`).setAttribute('aria-selected', isWanted);
        byId(`tab-${name}`).setAttribute('tabindex', isWanted ? 0 : -1);
    }
}
