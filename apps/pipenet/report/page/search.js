// The search for a handle or a well number: a text field with the entities found below it.

const MOST_RESULTS = 12;

/** Marks the entity and moves the picture to it. */
function goToEntity(picture, state, handle) {
    const { model } = state;
    const item = model.byHandle.get(handle);
    state.markItem(item);
    picture.goTo(state.spot.at, Math.max(3 * model.typicalLength, 1.5 * item.box.size));
    announce(`The picture shows ${linesAbout(model, item).join(', ')}`);
}

class Search {
    constructor(model, state, picture) {
        this.model = model;
        this.state = state;
        this.picture = picture;
        this.input = byId('search');
        this.list = byId('search-results');
        this.found = [];
        this.active = -1;
        this.input.addEventListener('input', () => this.look());
        this.input.addEventListener('focus', () => this.look());
        this.input.addEventListener('blur', () => this.close());
        this.input.addEventListener('keydown', (event) => this.key(event));
        this.list.addEventListener('pointerdown', (event) => this.press(event));
    }

    look() {
        this.found = this.model.search(this.input.value, MOST_RESULTS);
        this.list.replaceChildren(...this.found.map((item, index) => this.makeResult(item, index)));
        const isAsked = this.input.value.trim() !== '';
        if (isAsked && this.found.length === 0) {
            const text = 'Nothing has this handle or number';
            this.list.append(element('li', { class: 'none', role: 'option' }, text));
        }
        this.open(isAsked);
        this.activate(this.found.length > 0 ? 0 : -1);
    }

    makeResult(item, index) {
        return element(
            'li',
            { role: 'option', id: `result-${index}`, 'data-handle': item.handle },
            element('span', {}, this.model.nameOf(item)),
            element('span', { class: 'what' }, this.model.systemName(item.system)),
        );
    }

    open(isOpen) {
        this.list.hidden = !isOpen;
        this.input.setAttribute('aria-expanded', isOpen);
    }

    close() {
        this.open(false);
        this.activate(-1);
    }

    activate(index) {
        this.active = index;
        [...this.list.children].forEach((result, place) => {
            result.setAttribute('aria-selected', place === index);
        });
        if (index < 0) {
            this.input.removeAttribute('aria-activedescendant');
        } else {
            this.input.setAttribute('aria-activedescendant', `result-${index}`);
        }
    }

    choose(index) {
        goToEntity(this.picture, this.state, this.found[index].handle);
        this.close();
    }

    press(event) {
        event.preventDefault();
        const index = [...this.list.children].indexOf(event.target.closest('li'));
        if (index >= 0 && index < this.found.length) {
            this.choose(index);
        }
    }

    key(event) {
        const count = this.found.length;
        const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
        if (step !== undefined && count > 0) {
            event.preventDefault();
            this.open(true);
            this.activate((this.active + step + count) % count);
        } else if (event.key === 'Enter' && count > 0) {
            this.choose(Math.max(0, this.active));
        } else if (event.key === 'Escape') {
            this.close();
        }
    }
}
