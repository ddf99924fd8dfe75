// Makes the page's elements. Whatever comes from a run enters as text, never as markup.

const svgSpace = 'http://www.w3.org/2000/svg';

function fill(element, attributes, children) {
  for (const [name, value] of Object.entries(attributes)) {
    if (value === null || value === undefined || value === false) continue;
    if (name === 'style') {
      for (const [property, setting] of Object.entries(value)) element.style.setProperty(property, setting);
    } else {
      element.setAttribute(name, value === true ? '' : String(value));
    }
  }
  for (const child of children.flat(Infinity)) {
    if (child !== null && child !== undefined && child !== '') element.append(child);
  }
  return element;
}

// `attributes`: null, undefined and false leave one out; `style` is an object of properties.
function make(name, attributes = {}, ...children) {
  return fill(document.createElement(name), attributes, children);
}

function makeSvg(name, attributes = {}, ...children) {
  return fill(document.createElementNS(svgSpace, name), attributes, children);
}

// `columns`: headings; `rows`: lists of cells, each a text, an element or a list of such. The first cell
// heads its row where `headsRows` says so.
// The roles hold where the style of a narrow page takes a table apart.
function makeTable(caption, columns, rows, {headsRows = false, className = ''} = {}) {
  const head = make('tr', {role: 'row'}, columns.map((column) => make('th', {scope: 'col', role: 'columnheader'}, column)));
  const makeCell = (cell, index) => (headsRows && index === 0
    ? make('th', {scope: 'row', role: 'rowheader', 'data-column': columns[index]}, make('div', {}, cell))
    : make('td', {role: 'cell', 'data-column': columns[index]}, make('div', {}, cell)));
  const body = rows.map((cells) => make('tr', {role: 'row'}, cells.map(makeCell)));
  return make('table', {class: className, role: 'table'}, make('caption', {}, caption), make('thead', {role: 'rowgroup'}, head),
    make('tbody', {role: 'rowgroup'}, body));
}

const longText = 60;

// `entries`: pairs of a name and a text or element. A long one gets the whole width.
function makeFacts(entries) {
  return make('dl', {class: 'facts'}, entries.map(([name, value]) => {
    const words = make('dd', {}, value);
    return make('div', {class: words.textContent.length > longText ? 'long' : null}, make('dt', {}, name), words);
  }));
}

function makeSection(id, title, ...children) {
  return make('section', {id, 'aria-labelledby': `${id}-title`}, make('h2', {id: `${id}-title`}, title), children);
}
