// What the player of the other side, the device and the conversation are set to.

const element = (id) => document.getElementById(id);
const choices = ['device', 'appearance', 'presentation', 'group', 'loadingTakes'];

export class Controls {
    #send;

    constructor(send) {
        this.#send = send;
        for (const name of choices) {
            element(name).addEventListener('change', () => this.#set(name, element(name).value));
        }
        element('participants').addEventListener('change', () => {
            const names = element('participants').value.split(',').map((name) => name.trim()).filter(Boolean);
            this.#send({ type: 'set', participants: names });
        });
        element('restart').addEventListener('click', () => this.restart());
        element('controls').addEventListener('submit', (event) => event.preventDefault());
        element('messageForm').addEventListener('submit', (event) => {
            event.preventDefault();
            this.#sendMessage();
        });
    }

    set state(state) {
        fill(element('device'), state.devices, state.device);
        fill(element('group'), state.groups, state.group);
        fill(element('messageFrom'), state.participants, element('messageFrom').value);
        element('appearance').value = state.appearance;
        element('presentation').value = state.presentation;
        element('loadingTakes').value = String(state.loadingTakes);
        if (document.activeElement !== element('participants')) {
            element('participants').value = state.participants.join(', ');
        }
        element('group').disabled = state.groups.length === 0;
    }

    restart() {
        this.#send({ type: 'restart' });
    }

    /** Chooses what follows in the list, from the last on the first. */
    next(name) {
        const select = element(name);
        if (select.disabled || select.length === 0) {
            return;
        }
        select.selectedIndex = (select.selectedIndex + 1) % select.length;
        this.#set(name, select.value);
    }

    #set(name, value) {
        this.#send({ type: 'set', [name]: name === 'loadingTakes' ? Number(value) : value });
    }

    #sendMessage() {
        const text = element('messageText').value;
        const link = element('messageLink').value.trim();
        if (text.trim() !== '' || link !== '') {
            this.#send({ type: 'message', from: element('messageFrom').value, text, link });
            element('messageText').value = '';
        }
    }
}

function fill(select, names, chosen) {
    const known = [...select.options].map((option) => option.value);
    if (known.join('\n') !== names.join('\n')) {
        select.replaceChildren(...names.map((name) => new Option(name, name)));
    }
    if (names.includes(chosen)) {
        select.value = chosen;
    }
}
