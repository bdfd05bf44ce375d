// The panels beside the phone; one at a time is open.

const tabs = [...document.querySelectorAll('[role=tab]')];

/** Opens a panel by its name, such as "out". */
export function openPanel(name) {
    for (const tab of tabs) {
        const chosen = tab.id === `tab-${name}`;
        tab.setAttribute('aria-selected', String(chosen));
        tab.tabIndex = chosen ? 0 : -1;
        document.getElementById(tab.getAttribute('aria-controls')).hidden = !chosen;
    }
    document.dispatchEvent(new CustomEvent('panel', { detail: name }));
}

for (const [index, tab] of tabs.entries()) {
    tab.addEventListener('click', () => openPanel(tab.id.slice('tab-'.length)));
    tab.addEventListener('keydown', (event) => {
        const step = { ArrowRight: 1, ArrowLeft: -1 }[event.key];
        if (step) {
            const next = tabs[(index + step + tabs.length) % tabs.length];
            next.focus();
            next.click();
        }
    });
}
