// Mouse, pen and fingers on the picture: drag to move, wheel or two fingers to zoom, point to see,
// click to choose.

const CLICK_SLACK = 4; // pixels that a click may wander

class PictureHands {
    constructor(picture) {
        this.picture = picture;
        this.canvas = picture.canvas;
        this.held = new Map();
        this.wandered = 0;
        this.lookAt = null;
        this.listen();
    }

    listen() {
        const { canvas } = this;
        canvas.addEventListener('pointerdown', (event) => this.down(event));
        canvas.addEventListener('pointermove', (event) => this.move(event));
        canvas.addEventListener('pointerup', (event) => this.up(event));
        canvas.addEventListener('pointercancel', (event) => this.release(event));
        canvas.addEventListener('pointerleave', () => this.picture.pointAt(null));
        canvas.addEventListener('wheel', (event) => this.wheel(event), { passive: false });
    }

    place(event) {
        const frame = this.canvas.getBoundingClientRect();
        return { x: event.clientX - frame.left, y: event.clientY - frame.top };
    }

    down(event) {
        this.canvas.setPointerCapture(event.pointerId);
        this.wandered = this.held.size === 0 ? 0 : Infinity;
        this.held.set(event.pointerId, this.place(event));
    }

    move(event) {
        const place = this.place(event);
        const before = this.held.get(event.pointerId);
        if (!before) {
            this.look(place);
            return;
        }
        if (this.held.size === 1) {
            this.drag(before, place);
        } else {
            this.pinch(event.pointerId, before, place);
        }
        this.held.set(event.pointerId, place);
    }

    drag(before, place) {
        this.wandered += Math.hypot(place.x - before.x, place.y - before.y);
        if (this.wandered > CLICK_SLACK) {
            this.canvas.classList.add('dragging');
            this.picture.pointAt(null);
            this.picture.view.panBy(place.x - before.x, place.y - before.y);
        }
    }

    pinch(moved, before, place) {
        const other = [...this.held].find(([id]) => id !== moved)[1];
        const span = (a) => Math.hypot(a.x - other.x, a.y - other.y);
        const middle = { x: (place.x + other.x) / 2, y: (place.y + other.y) / 2 };
        this.picture.view.panBy((place.x - before.x) / 2, (place.y - before.y) / 2);
        if (span(before) > 0 && span(place) > 0) {
            this.picture.view.zoomAt(middle.x, middle.y, span(place) / span(before));
        }
    }

    up(event) {
        if (this.held.has(event.pointerId) && this.wandered <= CLICK_SLACK) {
            const { x, y } = this.place(event);
            this.picture.choose(x, y);
        }
        this.release(event);
    }

    release(event) {
        this.held.delete(event.pointerId);
        this.canvas.classList.remove('dragging');
    }

    /** Looks what is under the pointer, once a frame however fast it moves. */
    look(place) {
        if (this.lookAt === null) {
            requestAnimationFrame(() => {
                this.picture.pointAt(this.lookAt);
                this.lookAt = null;
            });
        }
        this.lookAt = place;
    }

    wheel(event) {
        event.preventDefault();
        const { x, y } = this.place(event);
        const lines = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? 24 : 1;
        const turned = Math.min(300, Math.max(-300, event.deltaY * lines));
        this.picture.view.zoomAt(x, y, Math.exp(-turned / 400));
    }
}
