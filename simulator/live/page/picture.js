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

/** The phone's pixels, one to one. They lie in memory: a canvas would copy itself whole for every move. */
export class Pixels {
    /** ImageData; null before the first picture. */
    image = null;
    #words = null; // a pixel each

    apply(picture) {
        const { width, height } = picture;
        if (this.image?.width !== width || this.image.height !== height) {
            this.image = new ImageData(width, height);
            this.#words = new Uint32Array(this.image.data.buffer);
        }
        for (const move of picture.moves) {
            this.#move(move);
        }
        for (const rect of picture.rects) {
            this.#put(rect);
        }
    }

    /** Rows that leave the area are lost; those that come in are told by the rectangles that follow. */
    #move({ x, y, width, height, down }) {
        const rows = height - Math.abs(down);
        const from = down > 0 ? y : y - down;
        const to = down > 0 ? y + down : y;
        const whole = this.image.width;
        if (width === whole && rows > 0) {
            this.#words.copyWithin(to * whole, from * whole, (from + rows) * whole);
            return;
        }
        for (let row = 0; row < rows; ++row) {
            const at = down > 0 ? rows - 1 - row : row; // none is overwritten before it has been moved
            const start = (from + at) * whole + x;
            this.#words.copyWithin((to + at) * whole + x, start, start + width);
        }
    }

    #put({ x, y, width, height, pixels }) {
        for (let row = 0; row < height; ++row) {
            const line = pixels.subarray(row * width * 4, (row + 1) * width * 4);
            this.image.data.set(line, ((y + row) * this.image.width + x) * 4);
        }
    }
}
