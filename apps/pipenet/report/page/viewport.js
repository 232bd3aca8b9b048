// Which part of the drawing the picture shows: a centre in the drawing and a scale in pixels for
// one drawing unit. Upwards in the drawing is upwards on the page.

const FLIGHT_MILLISECONDS = 380;
const FIT_MARGIN = 48;

class Viewport {
    constructor(box, onChange) {
        this.onChange = onChange;
        this.whole = box;
        this.x = this.y = 0;
        this.scale = 1;
        this.width = this.height = 1;
        this.flight = 0;
    }

    screenX(x) {
        return (x - this.x) * this.scale + this.width / 2;
    }

    screenY(y) {
        return this.height / 2 - (y - this.y) * this.scale;
    }

    drawingX(px) {
        return (px - this.width / 2) / this.scale + this.x;
    }

    drawingY(py) {
        return (this.height / 2 - py) / this.scale + this.y;
    }

    /** Whether any of the box can be seen, `around` pixels beyond the edges counted in. */
    shows(box, around = 0) {
        return (
            this.screenX(box.right) >= -around &&
            this.screenX(box.left) <= this.width + around &&
            this.screenY(box.bottom) >= -around &&
            this.screenY(box.top) <= this.height + around
        );
    }

    resize(width, height) {
        this.width = Math.max(1, width);
        this.height = Math.max(1, height);
    }

    scaleFor(box) {
        const across = Math.max(1, this.width - 2 * FIT_MARGIN) / (box.right - box.left);
        const down = Math.max(1, this.height - 2 * FIT_MARGIN) / (box.top - box.bottom);
        const scale = Math.min(across, down);
        return Number.isFinite(scale) ? scale : 20;
    }

    within(scale) {
        const whole = this.whole.isEmpty ? 1 : this.scaleFor(this.whole);
        return Math.min(Math.max(scale, whole / 8), whole * 1e5);
    }

    fit(box = this.whole) {
        if (!box.isEmpty) {
            [this.x, this.y] = box.centre;
            this.scale = this.within(this.scaleFor(box));
        }
        this.changed();
    }

    /** Whether the whole drawing fills the picture, as when the page was opened. */
    get isWhole() {
        if (this.whole.isEmpty) {
            return false;
        }
        const [x, y] = this.whole.centre;
        const scale = this.within(this.scaleFor(this.whole));
        const isThere = Math.hypot(x - this.x, y - this.y) * scale < 0.5;
        return isThere && Math.abs(this.scale / scale - 1) < 1e-6;
    }

    flyToBox(box) {
        if (!box.isEmpty) {
            this.flyTo(...box.centre, this.scaleFor(box));
        }
    }

    zoomAt(px, py, factor) {
        const [x, y] = [this.drawingX(px), this.drawingY(py)];
        this.scale = this.within(this.scale * factor);
        this.x = x - (px - this.width / 2) / this.scale;
        this.y = y + (py - this.height / 2) / this.scale;
        this.changed();
    }

    zoom(factor) {
        this.zoomAt(this.width / 2, this.height / 2, factor);
    }

    panBy(dx, dy) {
        this.x -= dx / this.scale;
        this.y += dy / this.scale;
        this.changed();
    }

    changed() {
        cancelAnimationFrame(this.flight);
        this.onChange();
    }

    /** Moves there in a short flight, or at once for those who asked for no motion. */
    flyTo(x, y, scale) {
        cancelAnimationFrame(this.flight);
        const from = { x: this.x, y: this.y, scale: this.scale };
        const to = { x, y, scale: this.within(scale) };
        if (matchMedia('(prefers-reduced-motion: reduce)').matches) {
            this.moveBetween(from, to, 1);
            return;
        }
        const begin = performance.now();
        const step = (now) => {
            const part = Math.min(1, Math.max(0, (now - begin) / FLIGHT_MILLISECONDS));
            this.moveBetween(from, to, part * part * (3 - 2 * part));
            if (part < 1) {
                this.flight = requestAnimationFrame(step);
            }
        };
        this.flight = requestAnimationFrame(step);
    }

    /** The scale goes by equal factors and the centre with it, so that the way is seen evenly. */
    moveBetween(from, to, part) {
        this.scale = from.scale * (to.scale / from.scale) ** part;
        const near = Math.abs(to.scale / from.scale - 1) < 1e-6;
        const moved = near
            ? part
            : (1 / from.scale - 1 / this.scale) / (1 / from.scale - 1 / to.scale);
        this.x = from.x + (to.x - from.x) * moved;
        this.y = from.y + (to.y - from.y) * moved;
        this.onChange();
    }
}
