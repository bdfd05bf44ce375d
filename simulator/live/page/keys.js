// The page's keys, and the list of them.

const element = (id) => document.getElementById(id);

/** `bindings`: [key, what it does, action]. Keys with a modifier and keys that go into a field stay the browser's. */
export function listenToKeys(bindings) {
    const actions = new Map(bindings.map(([key, , action]) => [key, action]));
    actions.set('?', showHelp);
    document.addEventListener('keydown', (event) => {
        const typing = event.target.closest('input, textarea, select, dialog');
        const action = actions.get(event.key);
        if (action && !typing && !event.ctrlKey && !event.metaKey && !event.altKey) {
            event.preventDefault();
            action();
        }
    });
    element('helpButton').addEventListener('click', showHelp);
    for (const [key, what] of [...bindings, ['?', 'this list'], ['Tab', 'from element to element, also on the phone'], ['Enter', 'touches the element']]) {
        const term = document.createElement('dt');
        const name = document.createElement('kbd');
        name.textContent = key;
        term.append(name);
        const meaning = document.createElement('dd');
        meaning.textContent = what;
        element('keys').append(term, meaning);
    }
}

function showHelp() {
    element('help').showModal();
}
