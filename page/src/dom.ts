// Elements of the page. Texts are only ever set as texts, so that nothing in a board is taken for markup.

type Child = Node | string;

interface Properties {
  class?: string;
  id?: string;
  title?: string;
  type?: string;
  for?: string;
  role?: string;
  tabindex?: string;
  [attribute: `aria-${string}`]: string;
  [attribute: `data-${string}`]: string;
}

export function element<K extends keyof HTMLElementTagNameMap>(name: K, properties: Properties = {},
  ...children: Child[]): HTMLElementTagNameMap[K] {
  const made = document.createElement(name);
  for (const [key, value] of Object.entries(properties)) {
    if (value !== undefined) {
      made.setAttribute(key, value);
    }
  }
  made.append(...children);
  return made;
}

export function button(label: string, onClick: () => void, properties: Properties & { sign?: string } = {}):
  HTMLButtonElement {
  const { sign, ...others } = properties;
  const named = sign === undefined ? {} : { 'aria-label': label, title: label };
  const made = element('button', { type: 'button', ...named, ...others }, sign ?? label);
  made.addEventListener('click', onClick);
  return made;
}

// A box to check, with its name.
export function checkBox(label: string, isOn: boolean, onChange: (isOn: boolean) => void): HTMLLabelElement {
  const input = element('input', { type: 'checkbox' });
  input.checked = isOn;
  input.addEventListener('change', () => onChange(input.checked));
  return element('label', { class: 'check' }, input, label);
}

export function choice<T extends string>(label: string, options: [T, string][], value: T,
  onChange: (value: T) => void): HTMLLabelElement {
  const select = element('select', { 'aria-label': label });
  for (const [key, name] of options) {
    const option = element('option', {}, name);
    option.value = key;
    option.selected = key === value;
    select.append(option);
  }
  select.addEventListener('change', () => onChange(select.value as T));
  return element('label', { class: 'choice' }, element('span', {}, label), select);
}

// Buttons of which one is pressed.
export function switchOf<T extends string>(label: string, options: [T, string][], current: () => T,
  onChange: (value: T) => void): { node: HTMLElement; update: () => void } {
  const buttons = options.map(([key, name]) => {
    const made = button(name, () => onChange(key));
    made.dataset['key'] = key;
    return made;
  });
  const update = (): void => {
    buttons.forEach((made) => made.setAttribute('aria-pressed', String(made.dataset['key'] === current())));
  };
  update();
  return { node: element('div', { class: 'switch', role: 'group', 'aria-label': label }, ...buttons), update };
}

export function plainTable(head: string[], rows: string[][]): HTMLTableElement {
  const headRow = element('tr', {}, ...head.map((cell) => element('th', { 'data-scope': 'col' }, cell)));
  const body = rows.map((row) => element('tr', {}, ...row.map((cell) => element('td', {}, cell))));
  return element('table', { class: 'plain' }, element('thead', {}, headRow), element('tbody', {}, ...body));
}

export function saveFile(name: string, content: Blob): void {
  const link = element('a');
  link.href = URL.createObjectURL(content);
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 10000);
}
