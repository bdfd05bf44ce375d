// Joins the parts of the page: messages go to whom they concern, what is done goes to the phone.

import { Carrier } from './carrier.js';
import { Controls } from './controls.js';
import { Inspector } from './inspector.js';
import { listenToKeys } from './keys.js';
import { Outcome } from './outcome.js';
import { Phone } from './phone.js';
import { Recorder } from './recorder.js';
import { openPanel } from './tabs.js';

const element = (id) => document.getElementById(id);
let asked = 0; // messages that the phone has to answer

function send(message) {
    if (carrier.send(message) && message.type !== 'shown') {
        asked += 1;
        phone.busy = true;
    }
}

const phone = new Phone(send);
const controls = new Controls(send);
const outcome = new Outcome();
const recorder = new Recorder();
const inspector = new Inspector(phone);
let inspecting = false;

const receivers = {
    state(state) {
        phone.size = state.size;
        phone.typing = state.typing;
        controls.state = state;
        element('source').textContent = state.source;
        document.title = `${state.source} · Truths & Dares`;
    },
    elements: ({ list }) => (phone.elements = list),
    tree: ({ root }) => (inspector.root = root),
    debug: (line) => outcome.debug(line),
    link: (link) => outcome.link(link),
    styleRequest: (request) => outcome.styleRequest(request),
    flow: ({ text }) => (recorder.text = text),
    findings: ({ list }) => (outcome.findings = list),
    settled: ({ heard }) => (phone.busy = heard !== asked),
};

const carrier = new Carrier({
    message(message) {
        phone.busy = true; // until it is told that nothing follows
        receivers[message.type]?.(message);
    },
    picture: (buffer) => phone.show(buffer),
    connected(connected) {
        element('connection').textContent = connected ? 'Connected' : 'Not connected. Is Parlor still running?';
        document.body.classList.toggle('lost', !connected);
        asked = 0;
        phone.busy = true;
        if (connected) {
            outcome.clear(); // the phone tells everything anew to a page that comes
            send({ type: 'inspect', on: inspecting });
        }
    },
});

document.addEventListener('panel', ({ detail }) => {
    const wanted = detail === 'inspector';
    if (wanted !== inspecting) {
        inspecting = wanted;
        inspector.open = wanted;
        send({ type: 'inspect', on: wanted });
    }
});

element('zoom').addEventListener('change', () => (phone.zoom = element('zoom').value));

function zoomBy(step) {
    const zoom = element('zoom');
    zoom.selectedIndex = Math.min(Math.max(zoom.selectedIndex + step, 0), zoom.length - 1);
    phone.zoom = zoom.value;
}

listenToKeys([
    ['v', 'the next device', () => controls.next('device')],
    ['d', 'light or dark', () => controls.next('appearance')],
    ['c', 'closed, compact or expanded', () => controls.next('presentation')],
    ['g', 'the next group', () => controls.next('group')],
    ['l', 'how long loading takes', () => controls.next('loadingTakes')],
    ['p', 'the other people', () => element('participants').focus()],
    ['m', 'a message of the other person', () => element('messageText').focus()],
    ['r', 'everything from the beginning', () => controls.restart()],
    ['f', 'what was done, as a flow', () => openPanel('flow')],
    ['s', 'save the flow', () => recorder.save()],
    ['i', 'inspect', () => openPanel(inspecting ? 'out' : 'inspector')],
    ['+', 'larger', () => zoomBy(1)],
    ['-', 'smaller', () => zoomBy(-1)],
]);

// For measurements and tests: the phone's own pixels, before they are fitted to the page.
window.phonePixels = () => phone.pixels;
