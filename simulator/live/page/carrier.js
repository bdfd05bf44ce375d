// Carries messages between this page and the phone. Nobody else knows that it is a WebSocket.

const shortestWait = 250; // ms before the first new attempt; doubled up to longestWait
const longestWait = 4000;

export class Carrier {
    #socket = null;
    #wait = shortestWait;
    #listener;

    /** `listener` has message(object), picture(ArrayBuffer) and connected(boolean). */
    constructor(listener) {
        this.#listener = listener;
        this.#connect();
    }

    /** False while there is no connection: the phone tells its whole state to a page that comes back. */
    send(message) {
        const isOpen = this.#socket.readyState === WebSocket.OPEN;
        if (isOpen) {
            this.#socket.send(JSON.stringify(message));
        }
        return isOpen;
    }

    #connect() {
        const address = new URL('socket', location.href);
        address.protocol = 'ws:';
        this.#socket = new WebSocket(address);
        this.#socket.binaryType = 'arraybuffer';
        this.#socket.onopen = () => {
            this.#wait = shortestWait;
            this.#listener.connected(true);
        };
        this.#socket.onmessage = ({ data }) => {
            if (typeof data === 'string') {
                this.#listener.message(JSON.parse(data));
            } else {
                this.#listener.picture(data);
            }
        };
        this.#socket.onclose = () => {
            this.#listener.connected(false);
            setTimeout(() => this.#connect(), this.#wait);
            this.#wait = Math.min(this.#wait * 2, longestWait);
        };
    }
}
