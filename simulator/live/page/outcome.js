// What left the extension, what it printed, and what is to be mended.

const element = (id) => document.getElementById(id);
const mostLines = 2000;

export class Outcome {
    link({ ms, url, items }) {
        const card = node('li', 'card');
        card.append(heading('Link opened', ms), items.length > 0 ? list(items) : '', copied(url));
        add('out', card);
    }

    styleRequest({ ms, style, changed }) {
        const card = node('li', 'card');
        card.append(heading(`Asked for ${style}`, ms), node('p', '', changed ? 'The phone followed.' : 'It was so already.'));
        add('out', card);
    }

    debug({ ms, line }) {
        const row = node('li');
        row.append(time(ms), node('span', 'text', line));
        add('debug', row);
    }

    /** What was told of an earlier run goes when everything begins again. */
    clear() {
        for (const id of ['out', 'debug']) {
            element(id).replaceChildren();
            count(id);
        }
    }

    set findings(list) {
        const box = element('findings');
        box.hidden = list.length === 0;
        const errors = list.filter(({ severity }) => severity === 'error').length;
        const title = node('h2', '', errors > 0 ? 'To be mended. The last good screen stays.' : 'Worth a look');
        const rows = node('ul');
        rows.append(...list.map((finding) => findingRow(finding)));
        box.replaceChildren(title, rows);
        box.classList.toggle('warnings', errors === 0);
    }
}

/** A text with a button that puts it on the clipboard. */
export function copied(text) {
    const row = node('div', 'copied');
    const button = node('button', '', 'Copy');
    button.type = 'button';
    button.setAttribute('aria-label', `Copy ${text}`);
    putOnClipboard(button, () => text);
    row.append(node('code', '', text), button);
    return row;
}

/** A click on the button copies what `text` gives, and the button says so for a moment. */
export function putOnClipboard(button, text) {
    button.addEventListener('click', async () => {
        await navigator.clipboard.writeText(text());
        button.textContent = 'Copied';
        setTimeout(() => (button.textContent = 'Copy'), 1200);
    });
}

export function node(name, className = '', text = '') {
    const made = document.createElement(name);
    made.className = className;
    made.textContent = text;
    return made;
}

function findingRow({ severity, path, line, column, what }) {
    const row = node('li', severity);
    const place = line > 0 ? `${path}:${line}:${column}` : path;
    row.append(copied(place), node('p', '', what));
    return row;
}

function list(items) {
    const names = node('dl');
    for (const { name, value } of items) {
        names.append(node('dt', '', name), node('dd', '', value ?? '(no value)'));
    }
    return names;
}

function heading(text, ms) {
    const title = node('h3', '', text);
    title.append(' ', time(ms));
    return title;
}

function time(ms) {
    return node('time', '', `${(ms / 1000).toFixed(2)} s`);
}

function add(id, row) {
    const rows = element(id);
    const atEnd = rows.parentElement.scrollTop + rows.parentElement.clientHeight >= rows.parentElement.scrollHeight - 8;
    rows.append(row);
    if (rows.childElementCount > mostLines) {
        rows.firstElementChild.remove();
    }
    count(id);
    if (atEnd) {
        rows.parentElement.scrollTop = rows.parentElement.scrollHeight;
    }
}

function count(id) {
    const rows = element(id).childElementCount;
    element(`count-${id}`).textContent = rows > 0 ? String(rows) : '';
    element(id).parentElement.querySelector('.empty').hidden = rows > 0;
}
