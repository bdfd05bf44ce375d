// What was done since the last restart, as a flow that `parlor run` replays.

import { putOnClipboard } from './outcome.js';

const element = (id) => document.getElementById(id);

export class Recorder {
    constructor() {
        element('saveFlow').addEventListener('click', () => this.save());
        putOnClipboard(element('copyFlow'), () => element('flow').textContent);
    }

    set text(text) {
        const flow = element('flow');
        const atEnd = flow.scrollTop + flow.clientHeight >= flow.scrollHeight - 8;
        flow.textContent = text;
        if (atEnd) {
            flow.scrollTop = flow.scrollHeight;
        }
    }

    /** As a download. */
    save() {
        const link = document.createElement('a');
        link.href = URL.createObjectURL(new Blob([element('flow').textContent], { type: 'application/yaml' }));
        link.download = 'recorded.yaml';
        link.click();
        setTimeout(() => URL.revokeObjectURL(link.href), 10_000);
    }
}
