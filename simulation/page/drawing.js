// A scene as a drawing to scale: one unit is one pixel of the screen.

const margin = 12;
const letterShare = 88;  // so many letters' heights make the drawing's width
const leastLetter = 18;
const mostLetter = 30;

function isInView(window) {
  return window.visible && !window.minimized && window.bounds[2] > window.bounds[0] && window.bounds[3] > window.bounds[1];
}

// What is drawn lies on a monitor, at least in part.
function isOnMonitor({bounds: [left, top, right, bottom]}, monitors) {
  return monitors.some(({bounds}) => left < bounds[2] && right > bounds[0] && top < bounds[3] && bottom > bounds[1]);
}

function boundsOfAll(monitors) {
  const sides = (index, choose) => choose(...monitors.map(({bounds}) => bounds[index]));
  return [sides(0, Math.min) - margin, sides(1, Math.min) - margin, sides(2, Math.max) + margin, sides(3, Math.max) + margin];
}

function rectangle([left, top, right, bottom], className, more = {}) {
  return makeSvg('rect', {x: left, y: top, width: Math.max(0, right - left), height: Math.max(0, bottom - top), class: className, ...more});
}

function grown([left, top, right, bottom], by) {
  return [left - by, top - by, right + by, bottom + by];
}

// A line of text that ends where its place does.
function textIn([left, top, right, bottom], text, className, letter, {indent = 8} = {}) {
  if (!text || right - left < 2 * letter || bottom <= top) return null;
  const width = right - left;
  const height = bottom - top;
  const line = makeSvg('text', {x: indent, y: Math.min(height / 2, letter * 1.2) + letter * 0.35, class: className, 'font-size': letter}, text);
  return makeSvg('svg', {x: left, y: top, width, height, overflow: 'hidden', 'aria-hidden': 'true'}, line);
}

// What the run did to elements, by "window/element".
function touchesOf(run) {
  return {
    typed: new Set(run.report.input.filter(({element}) => element !== null).map(({window, element}) => `${window}/${element}`)),
    pressed: new Set(Object.keys(run.report.desktop.invoked || {})),
  };
}

class Drawing {
  constructor(run, scene, {marksTouches}) {
    this.run = run;
    this.scene = scene;
    this.touches = marksTouches ? touchesOf(run) : {typed: new Set(), pressed: new Set()};
    this.view = boundsOfAll(scene.monitors);
    this.letter = Math.min(mostLetter, Math.max(leastLetter, (this.view[2] - this.view[0]) / letterShare));
    this.drawn = scene.windows.filter((window) => isInView(window) && isOnMonitor(window, scene.monitors));
  }

  make(label) {
    const [left, top, right, bottom] = this.view;
    const parts = this.scene.monitors.map(({bounds, work}) => makeSvg('g', {}, rectangle(bounds, 'monitor', {'data-monitor': true}), rectangle(work, 'work')));
    const windows = [...this.drawn].reverse().map((window) => this.makeWindow(window));
    return makeSvg('svg', {
      viewBox: `${left} ${top} ${right - left} ${bottom - top}`, role: 'img', 'aria-label': label, class: 'desktop',
      style: {'--stroke': `${this.letter / 10}px`},
    }, parts, windows);
  }

  makeWindow(window) {
    const {bounds, id} = window;
    const isFront = id === this.scene.foreground;
    return makeSvg('g', {class: `window${isFront ? ' front' : ''}`, 'data-window': id},
      makeSvg('title', {}, `${id}: ${window.title}`),
      rectangle(bounds, 'frame', {'data-bounds': bounds.join(' ')}),
      window.tabs ? this.makeTabs(window) : this.makeTitle(window),
      window.elements.map((element) => this.makeElement(window, element)),
      this.makeNumber(window));
  }

  makeTitle({bounds: [left, top, right, bottom], title, id}) {
    const place = [left, top, right, Math.min(bottom, top + stripHeight)];
    return [rectangle(place, 'titleBar'), textIn([left, top, right - 2.2 * this.letter, place[3]], title || id, 'label strong', this.letter)];
  }

  makeTabs({bounds: [left, top, right, bottom], tabs, title}) {
    const strip = rectangle([left, top, right, Math.min(bottom, top + stripHeight)], 'titleBar');
    if (tabs.length === 0) return [strip, textIn([left, top, right, top + stripHeight], title, 'label strong', this.letter)];
    return [strip, tabs.map((tab) => [
      rectangle(tab.bounds, tab.selected ? 'tab selected' : 'tab'),
      textIn(tab.bounds, tab.title, tab.selected ? 'label strong' : 'label', this.letter),
    ])];
  }

  makeElement(window, element) {
    const {bounds} = element;
    if (bounds[2] <= bounds[0] || bounds[3] <= bounds[1]) return null;
    const place = `${window.id}/${element.id}`;
    const known = ['edit', 'document', 'button', 'text', 'pane'].includes(element.type) ? element.type : 'pane';
    const classes = ['element', known, element.enabled ? '' : 'disabled', element.offscreen ? 'offscreen' : ''];
    return makeSvg('g', {class: classes.join(' ').trim(), 'data-element': element.id},
      makeSvg('title', {}, [element.type, element.id, element.name].filter(Boolean).join(' ')),
      rectangle(bounds, 'body', {rx: known === 'button' ? 6 : 0}),
      known === 'pane' ? null : textIn(bounds, this.labelOf(element), 'label', this.letter),
      this.touches.typed.has(place) ? rectangle(grown(bounds, 5), 'typed') : null,
      this.touches.pressed.has(place) ? [rectangle(grown(bounds, 5), 'pressed'), this.makeOuterLabel(element)] : null,
      element.focused ? rectangle(grown(bounds, 10), 'focus', {'data-focus': place}) : null);
  }

  // The name below a control that is too narrow for it.
  makeOuterLabel({name, id, bounds: [left, , right, bottom]}) {
    if (right - left >= 2 * this.letter + 60) return null;
    return makeSvg('text', {x: (left + right) / 2, y: bottom + this.letter * 1.3, 'text-anchor': 'middle', class: 'label', 'font-size': this.letter, 'aria-hidden': 'true'}, name || id);
  }

  // An address is no secret; of other fields the name and how much they hold.
  labelOf({id, type, name, value, password}) {
    if (type !== 'edit' || value === undefined) return name;
    if (id === 'addressBar' && !password) return value || name;
    return `${name || id || 'field'}: ${describeText(this.run, value)}`;
  }

  // Its place in the z-order, as in the list below.
  makeNumber({id, bounds: [left, top, right]}) {
    const radius = this.letter * 0.85;
    const x = Math.max(left + radius, right - radius * 1.3);
    const y = top + radius * 1.2;
    return makeSvg('g', {class: 'number', 'aria-hidden': 'true'}, makeSvg('circle', {cx: x, cy: y, r: radius}),
      makeSvg('text', {x, y: y + this.letter * 0.35, 'text-anchor': 'middle', 'font-size': this.letter},
        this.scene.windows.findIndex((window) => window.id === id) + 1));
  }
}

// ---- the words beside it

function stateOf(window, scene) {
  const words = [];
  if (window.id === scene.foreground) words.push('in front');
  if (window.minimized) words.push('minimised');
  if (!window.visible) words.push('hidden');
  if (window.topmost) words.push('always on top');
  if (isInView(window) && !isOnMonitor(window, scene.monitors)) words.push('off the screens');
  return words.join(', ') || 'open';
}

function placeText([left, top, right, bottom]) {
  return `${right - left} \u00d7 ${bottom - top} at ${left}, ${top}`;
}

function tabsText({tabs}) {
  if (!tabs) return 'none';
  const selected = tabs.findIndex((tab) => tab.selected);
  const list = tabs.map(({title}, index) => make('li', {class: index === selected ? 'selected' : null},
    title || 'without a title', index === selected ? ' (selected)' : ''));
  return tabs.length === 0 ? 'none open' : make('ol', {class: 'tabs', start: 0}, list);
}

function makeWindowTable(scene, caption) {
  const rows = scene.windows.map((window, index) => [
    String(index + 1), [make('strong', {}, window.id), ` ${window.process}`, make('br'), window.title],
    stateOf(window, scene), window.minimized ? `${placeText(window.bounds)} when restored` : placeText(window.bounds), tabsText(window),
  ]);
  return makeTable(caption, ['#', 'Window', 'State', 'Place in pixels', 'Tabs'], rows, {headsRows: true, className: 'windows'});
}

function makeApart(scene) {
  const apart = scene.windows.filter((window) => !isInView(window) || !isOnMonitor(window, scene.monitors));
  if (apart.length === 0) return null;
  return make('p', {class: 'apart'}, 'Not in the drawing: ',
    apart.map((window, index) => [index > 0 ? '; ' : '', make('strong', {}, window.id), ` (${stateOf(window, scene)})`]));
}

function makeScene(run, scene, title, options) {
  const drawing = new Drawing(run, scene, options);
  const front = scene.foreground === null ? 'no window is in front' : `${scene.foreground} is in front`;
  const focus = scene.focus === null ? 'nothing with a name has the focus' : `${scene.focus} has the focus`;
  const label = `${title}: ${countOf(drawing.drawn.length, 'window')} drawn; ${front}; ${focus}.`;
  return make('figure', {class: 'scene'}, make('h3', {}, title), drawing.make(label), make('figcaption', {}, `${front}; ${focus}.`),
    makeApart(scene), makeWindowTable(scene, `Windows ${options.when}, top of the z-order first`));
}

function makeLegend(scenes) {
  const entry = (className, words) => make('li', {}, makeSvg('svg', {viewBox: '0 0 40 26', 'aria-hidden': 'true', class: 'desktop key'},
    makeSvg('g', {class: className === 'frame' ? 'window front' : ''}, rectangle([5, 5, 35, 21], className))), words);
  return make('ul', {class: 'legend', 'aria-label': 'Marks in the drawings'}, entry('frame', 'in front'), entry('focus', 'has the focus'),
    entry('typed', 'keys went here'), entry('pressed', 'pressed through UI Automation'),
    scenes.isExact ? null : make('li', {}, 'Controls stand where the scenario puts them; what came or went meanwhile isn\u2019t drawn, nor is Orvane\u2019s own window before the run.'));
}
