// The views of the extension, what holds them, and the lines that they come from.

import { copied, node } from './outcome.js';

const element = (id) => document.getElementById(id);

export class Inspector {
    #phone;
    #root = null;
    #chosen = ''; // the path of indices from the root, such as "0.3.1"
    #folded = new Set();

    constructor(phone) {
        this.#phone = phone;
        element('tree').addEventListener('keydown', (event) => this.#keys(event));
    }

    set open(open) {
        this.#phone.picking = open ? (x, y) => this.#pick(x, y) : null;
        if (!open) {
            this.#phone.outline(null);
        }
    }

    set root(root) {
        this.#root = root;
        this.#show();
    }

    #show() {
        const hadFocus = element('tree').contains(document.activeElement);
        element('tree').replaceChildren(this.#row(this.#root, '0', 1));
        this.#tell();
        if (hadFocus) {
            this.#focus();
        }
    }

    #row(view, path, level) {
        const row = node('li', view.hidden ? 'hidden-view' : '');
        const name = node('button', 'view', view.class);
        const hint = view.text || view.label || view.id;
        name.type = 'button';
        name.tabIndex = path === (this.#chosen || '0') ? 0 : -1;
        name.dataset.path = path;
        name.append(hint ? node('span', 'hint', ` ${hint}`) : '');
        name.addEventListener('click', () => this.#choose(path));
        name.addEventListener('pointerenter', () => this.#phone.outline(view.frame));
        name.addEventListener('pointerleave', () => this.#phone.outline(this.#at(this.#chosen)?.frame));
        row.setAttribute('role', 'treeitem');
        row.setAttribute('aria-level', String(level));
        row.setAttribute('aria-selected', String(path === this.#chosen));
        row.append(name);
        if (view.children.length > 0) {
            row.setAttribute('aria-expanded', String(!this.#folded.has(path)));
            row.append(this.#children(view, path, level));
        }
        return row;
    }

    #children(view, path, level) {
        const rows = node('ul');
        rows.setAttribute('role', 'group');
        rows.hidden = this.#folded.has(path);
        rows.append(...view.children.map((child, index) => this.#row(child, `${path}.${index}`, level + 1)));
        return rows;
    }

    #choose(path) {
        this.#chosen = path;
        for (let outer = path; outer.includes('.'); outer = outer.slice(0, outer.lastIndexOf('.'))) {
            this.#folded.delete(outer.slice(0, outer.lastIndexOf('.')));
        }
        this.#show();
        this.#focus();
    }

    #focus() {
        const row = element('tree').querySelector(`[data-path="${this.#chosen}"]`);
        row?.focus({ preventScroll: true });
        row?.scrollIntoView({ block: 'nearest' });
    }

    #at(path) {
        const [, ...indices] = path.split('.');
        return path === '' ? null : indices.reduce((view, index) => view?.children[index], this.#root);
    }

    #tell() {
        const view = this.#at(this.#chosen);
        this.#phone.outline(view?.frame ?? null);
        element('details').replaceChildren(...(view ? details(view) : []));
    }

    /** The deepest visible view under a place; of neighbours the one in front. */
    #pick(x, y) {
        const inside = ({ frame: [left, top, width, height], hidden }) =>
            !hidden && x >= left && y >= top && x < left + width && y < top + height;
        let path = '0';
        for (let view = this.#root; view; ) {
            const index = view.children.findLastIndex(inside);
            path = index >= 0 ? `${path}.${index}` : path;
            view = view.children[index];
        }
        this.#choose(path);
    }

    #keys(event) {
        const rows = [...element('tree').querySelectorAll('.view')].filter((row) => row.offsetParent !== null);
        const at = rows.indexOf(document.activeElement);
        const path = rows[at]?.dataset.path;
        const step = { ArrowDown: 1, ArrowUp: -1 }[event.key];
        if (at < 0 || !(step || event.key === 'ArrowLeft' || event.key === 'ArrowRight')) {
            return;
        }
        event.preventDefault();
        event.stopPropagation();
        if (step) {
            this.#choose((rows[at + step] ?? rows[at]).dataset.path);
            return;
        }
        event.key === 'ArrowLeft' ? this.#folded.add(path) : this.#folded.delete(path);
        this.#choose(path);
    }
}

function details(view) {
    const facts = node('dl');
    const fact = (name, value) => value && facts.append(node('dt', '', name), node('dd', '', value));
    fact('class', view.class);
    fact('id', view.id);
    fact('label', view.label);
    fact('text', view.text);
    fact('frame', view.frame.map((length) => String(Math.round(length * 1000) / 1000)).join(', '));
    fact('hidden', view.hidden ? 'yes' : '');
    const parts = [facts];
    if (view.source) {
        parts.push(copied(view.source));
    }
    if (view.constraints.length > 0) {
        const rows = node('ul', 'constraints');
        rows.append(...view.constraints.map(constraintRow));
        parts.push(node('h3', '', 'Held by'), rows);
    }
    return parts;
}

function constraintRow({ text, source, state }) {
    const row = node('li');
    row.append(node('span', `state ${state.replace(' ', '-')}`, state), ' ', text);
    row.append(source ? copied(source) : '');
    return row;
}
