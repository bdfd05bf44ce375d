// The phone in the middle of the page: shows its pixels at any size, and is the finger.

import { Pixels, readPicture } from './picture.js';

const pointsALine = 16; // of a wheel that counts in lines

export class Phone {
    #send;
    #box = document.getElementById('phone');
    #shown = document.getElementById('screen');
    #elements = document.getElementById('elements');
    #typing = document.getElementById('typing');
    #outline = document.getElementById('outline');
    #pixels = new Pixels();
    #unfitted = new OffscreenCanvas(1, 1); // the pixels, where they are not shown one to one
    #size = [0, 0];
    #zoom = 'fit';
    #finger = null; // the pointer that is down
    #picking = null;

    constructor(send) {
        this.#send = send;
        this.#listen();
        new ResizeObserver(() => this.#fit()).observe(this.#box.parentElement);
        matchMedia(`(resolution: ${devicePixelRatio}dppx)`).addEventListener('change', () => this.#fit());
    }

    /** While set, a click on the phone calls it with the place instead of touching. */
    set picking(callback) {
        this.#picking = callback;
        this.#box.classList.toggle('picking', callback !== null);
    }

    set zoom(zoom) {
        this.#zoom = zoom;
        this.#fit();
    }

    /** In points. */
    set size(size) {
        this.#size = size;
        this.#fit();
    }

    /** Whether a field of the phone has its keyboard: then keys go there. */
    set typing(typing) {
        const begins = typing && this.#typing.hidden;
        const ends = !typing && document.activeElement === this.#typing;
        this.#typing.hidden = !typing;
        this.#box.classList.toggle('typing', typing);
        if (begins && (document.activeElement === document.body || this.#box.contains(document.activeElement))) {
            this.#takeFocus();
        } else if (ends) {
            this.#box.focus({ preventScroll: true });
        }
    }

    #takeFocus() {
        (this.#typing.hidden ? this.#box : this.#typing).focus({ preventScroll: true });
    }

    /** The phone's pixels one to one, for those who read them back. */
    get pixels() {
        return this.#pixels.image;
    }

    /** While the phone has not answered all that was done. */
    set busy(busy) {
        this.#box.setAttribute('aria-busy', String(busy));
    }

    show(buffer) {
        this.busy = true;
        const picture = readPicture(buffer);
        this.#pixels.apply(picture);
        this.#draw(areasOf(picture));
        this.#send({ type: 'shown', number: picture.number });
    }

    set elements(list) {
        const focused = document.activeElement?.dataset?.key;
        this.#elements.replaceChildren(...list.map((element) => this.#buttonFor(element)));
        this.#placeElements();
        if (focused) {
            this.#elements.querySelector(`[data-key="${CSS.escape(focused)}"]`)?.focus();
        }
    }

    /** Draws a line around a frame [x, y, width, height]; none takes it away. */
    outline(frame) {
        this.#outline.hidden = !frame;
        if (frame) {
            this.#place(this.#outline, frame);
        }
    }

    #buttonFor({ role, label, id, frame }) {
        const button = document.createElement('button');
        button.type = 'button';
        button.className = 'element';
        button.textContent = label || id || role;
        button.dataset.key = `${role} ${id} ${label}`;
        button.dataset.frame = frame.join(' ');
        button.addEventListener('click', () => {
            const [x, y, width, height] = frame;
            this.#send({ type: 'tap', x: x + width / 2, y: y + height / 2 });
        });
        return button;
    }

    #placeElements() {
        for (const button of this.#elements.children) {
            this.#place(button, button.dataset.frame.split(' ').map(Number));
        }
    }

    #place(node, [x, y, width, height]) {
        const scale = this.#cssScale();
        Object.assign(node.style, {
            left: `${x * scale}px`,
            top: `${y * scale}px`,
            width: `${width * scale}px`,
            height: `${height * scale}px`,
        });
    }

    #cssScale() {
        const [width] = this.#size;
        return width > 0 ? this.#box.clientWidth / width : 1;
    }

    #fit() {
        const [width, height] = this.#size;
        if (width === 0) {
            return;
        }
        const stage = this.#box.parentElement;
        const room = Math.max(window.innerHeight - 190, 320);
        const { paddingLeft, paddingRight } = getComputedStyle(stage);
        const across = stage.clientWidth - parseFloat(paddingLeft) - parseFloat(paddingRight);
        const fitting = Math.min(across / width, room / height, 1.6);
        const scale = this.#zoom === 'fit' ? fitting : Number(this.#zoom);
        this.#box.style.width = `${width * scale}px`;
        this.#box.style.height = `${height * scale}px`;
        this.#shown.width = Math.max(1, Math.round(width * scale * devicePixelRatio));
        this.#shown.height = Math.max(1, Math.round(height * scale * devicePixelRatio));
        this.#placeElements();
        this.#draw(null);
    }

    /** Copies the phone's pixels, or shrinks them; `areas` in them, or all. */
    #draw(areas) {
        const image = this.#pixels.image;
        if (!image || this.#size[0] === 0) {
            return;
        }
        const { width, height } = this.#shown;
        const isExact = image.width === width && image.height === height;
        const shown = this.#shown.getContext('2d', { alpha: false, willReadFrequently: true });
        if (isExact) {
            put(image, shown, areas);
            return;
        }
        const unfitted = this.#unfitted.getContext('2d', { alpha: false, willReadFrequently: true });
        const isNew = this.#unfitted.width !== image.width || this.#unfitted.height !== image.height;
        if (isNew) {
            this.#unfitted.width = image.width;
            this.#unfitted.height = image.height;
        }
        put(image, unfitted, isNew ? null : areas);
        shown.imageSmoothingQuality = 'high';
        shown.drawImage(this.#unfitted, 0, 0, width, height);
    }

    #pointOf(event) {
        const bounds = this.#box.getBoundingClientRect();
        const scale = this.#cssScale();
        return { x: (event.clientX - bounds.left) / scale, y: (event.clientY - bounds.top) / scale };
    }

    #touch(phase, event) {
        this.#send({ type: 'touch', phase, ...this.#pointOf(event) });
    }

    #listen() {
        this.#box.addEventListener('pointerdown', (event) => this.#down(event));
        this.#box.addEventListener('pointermove', (event) => this.#moved(event));
        this.#box.addEventListener('pointerup', (event) => this.#up('ended', event));
        this.#box.addEventListener('pointercancel', (event) => this.#up('cancelled', event));
        this.#box.addEventListener('wheel', (event) => this.#wheel(event), { passive: false });
        this.#typing.addEventListener('input', (event) => event.isComposing || this.#typed());
        this.#typing.addEventListener('compositionend', () => this.#typed());
        this.#typing.addEventListener('keydown', (event) => this.#key(event));
    }

    #typed() {
        const text = this.#typing.value;
        this.#typing.value = '';
        if (text !== '') {
            this.#send({ type: 'key', text });
        }
    }

    #key(event) {
        const text = { Backspace: '\b', Enter: '\n' }[event.key];
        if (text && !event.isComposing) {
            event.preventDefault();
            this.#send({ type: 'key', text });
        } else if (event.key === 'Escape') {
            this.#box.focus({ preventScroll: true });
        }
    }

    #down(event) {
        if (this.#finger !== null || event.button !== 0) {
            return;
        }
        event.preventDefault();
        this.#takeFocus();
        if (this.#picking) {
            const { x, y } = this.#pointOf(event);
            this.#picking(x, y);
            return;
        }
        this.#finger = event.pointerId;
        this.#box.setPointerCapture(event.pointerId);
        this.#touch('began', event);
    }

    #moved(event) {
        if (event.pointerId === this.#finger) {
            this.#touch('moved', event);
        }
    }

    #up(phase, event) {
        if (event.pointerId === this.#finger) {
            this.#finger = null;
            this.#touch(phase, event);
        }
    }

    #wheel(event) {
        event.preventDefault();
        const unit = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? pointsALine : 1;
        this.#send({ type: 'wheel', ...this.#pointOf(event), dy: (event.deltaY * unit) / this.#cssScale() });
    }
}

function put(image, context, areas) {
    for (const { x, y, width, height } of areas ?? [{ x: 0, y: 0, width: image.width, height: image.height }]) {
        context.putImageData(image, 0, 0, x, y, width, height);
    }
}

function areasOf({ whole, moves, rects }) {
    return whole ? null : [...moves, ...rects];
}
