// Reads picture messages (docs/live.md) and keeps the phone's pixels up to date.

const pictureKind = 1;

/** {whole, width, height, number, moves: [{x, y, width, height, down}], rects: [{x, y, width, height, pixels}]} */
export function readPicture(buffer) {
    const view = new DataView(buffer);
    let at = 0;
    const u8 = () => view.getUint8(at++);
    const u16 = () => view.getUint16((at += 2) - 2, true);
    const i16 = () => view.getInt16((at += 2) - 2, true);
    const u32 = () => view.getUint32((at += 4) - 4, true);
    if (u8() !== pictureKind) {
        throw new Error('not a picture message');
    }
    const picture = { whole: u8() === 1, width: u16(), height: u16(), number: u32(), moves: [], rects: [] };
    for (let count = u16(); count > 0; --count) {
        picture.moves.push({ x: i16(), y: i16(), width: i16(), height: i16(), down: i16() });
    }
    for (let count = u16(); count > 0; --count) {
        const rect = { x: u16(), y: u16(), width: u16(), height: u16() };
        const bytes = rect.width * rect.height * 4;
        rect.pixels = new Uint8ClampedArray(buffer, at, bytes);
        at += bytes;
        picture.rects.push(rect);
    }
    return picture;
}

/** The phone's pixels on a canvas, one to one. */
export class Pixels {
    #context;

    constructor(canvas) {
        this.canvas = canvas;
        this.#context = canvas.getContext('2d', { alpha: false, desynchronized: true, willReadFrequently: true });
    }

    apply(picture) {
        if (this.canvas.width !== picture.width || this.canvas.height !== picture.height) {
            this.canvas.width = picture.width;
            this.canvas.height = picture.height;
        }
        for (const move of picture.moves) {
            this.#move(move);
        }
        for (const rect of picture.rects) {
            if (rect.width > 0 && rect.height > 0) {
                this.#context.putImageData(new ImageData(rect.pixels, rect.width, rect.height), rect.x, rect.y);
            }
        }
    }

    /** Rows that leave the area are lost; those that come in are told by the rectangles that follow. */
    #move({ x, y, width, height, down }) {
        const rows = height - Math.abs(down);
        if (rows <= 0) {
            return;
        }
        const from = down > 0 ? y : y - down;
        const to = down > 0 ? y + down : y;
        this.#context.drawImage(this.canvas, x, from, width, rows, x, to, width, rows);
    }
}
