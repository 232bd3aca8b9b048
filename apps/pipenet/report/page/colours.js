// The colours of the style sheet as the picture needs them.

const SYSTEM_COLOURS = 8;

/** The variable with the colour of a system; -1 is what belongs to no checked system. */
function systemVariable(system) {
    return system < 0 ? '--context' : `--system-${system % SYSTEM_COLOURS}`;
}

/** Reads the colours that hold now: an element alone knows whether light or dark ones do. */
class Colours {
    constructor() {
        this.probe = element('span', { hidden: true });
        document.body.append(this.probe);
        this.known = new Map();
    }

    forget() {
        this.known.clear();
    }

    get(variable) {
        if (!this.known.has(variable)) {
            this.probe.style.color = `var(${variable})`;
            this.known.set(variable, getComputedStyle(this.probe).color);
        }
        return this.known.get(variable);
    }

    system(system) {
        return this.get(systemVariable(system));
    }
}

/** The switch between light and dark; without a choice the page follows the reader's system. */
function setUpTheme(onChange) {
    const root = document.documentElement;
    const system = matchMedia('(prefers-color-scheme: dark)');
    const isDark = () => (root.dataset.theme ?? (system.matches ? 'dark' : 'light')) === 'dark';
    const show = () => {
        byId('theme').textContent = isDark() ? 'Light' : 'Dark';
        byId('theme').title = `Switch to ${isDark() ? 'light' : 'dark'} colours`;
        onChange();
    };
    byId('theme').addEventListener('click', () => {
        root.dataset.theme = isDark() ? 'light' : 'dark';
        show();
    });
    system.addEventListener('change', show);
    show();
}
