// One call as a time line: lanes of items to scale, walked through by the arrow keys.

const automation = 'IUIAutomation';
const deedsOfAutomation = [
  'IUIAutomationElement::SetFocus', 'IUIAutomationInvokePattern::Invoke', 'IUIAutomationSelectionItemPattern::Select',
  'IUIAutomationValuePattern::SetValue', 'IUIAutomationLegacyIAccessiblePattern::DoDefaultAction',
];

// Everything else that is asked of UI Automation changes nothing.
function isQuestion({call}) {
  return call.startsWith(automation) && !deedsOfAutomation.includes(call);
}

// ---- what happened in a call

// Of the host's own thread, or of its others: the call goes on while those wait.
function waitItems(run, index, isOwn) {
  const waits = run.record.waits.filter(({reply, thread}) => reply === index && (thread === 0) === isOwn);
  return waits.sort((one, other) => one.ms - other.ms).map(({ms, endMs}) => ({
    ms, endMs, kind: 'wait', text: String(endMs - ms), title: `Wait of ${inMs(endMs - ms)}`, lines: [],
  }));
}

function questionItems(run, index) {
  const moments = new Map();
  for (const call of run.record.calls.filter((one) => one.reply === index && isQuestion(one))) {
    moments.set(call.ms, [...(moments.get(call.ms) || []), call]);
  }
  return [...moments].map(([ms, calls]) => {
    const total = calls.reduce((sum, {count}) => sum + count, 0);
    return {ms, kind: 'question', text: total > 999 ? '999+' : String(total), title: countOf(total, 'question') + ' to UI Automation',
      lines: sumUp(calls, ({call}) => call), more: sumUp(calls.filter(({window}) => window !== null), placeOf)};
  });
}

function placeOf({window, element}) {
  return element === null ? `the window ${window}` : `${window}/${element}`;
}

// "name x 3", the most frequent first.
function sumUp(calls, name) {
  const sums = new Map();
  for (const call of calls) sums.set(name(call), (sums.get(name(call)) || 0) + call.count);
  return [...sums].sort((one, other) => other[1] - one[1]).map(([text, count]) => (count === 1 ? text : `${text} \u00d7 ${count}`));
}

function deedItems(run, index) {
  return run.record.calls.filter((call) => call.reply === index && !isQuestion(call)).map((call) => ({
    ms: call.ms, kind: 'deed', text: signOfDeed(call.call), title: call.call.replace(/^IUIAutomation(\w+)::/, '$1: '),
    lines: [call.window === null ? '' : `On ${placeOf(call)}`, call.count === 1 ? '' : `${call.count} times`].filter(Boolean),
  }));
}

const deedSigns = [[/Clipboard/, 'C'], [/SendInput/, 'K'], [/Invoke|DoDefault/, 'P'], [/Select/, 'T'], [/Focus/, 'F'], [/Foreground|BringWindow/, 'W']];

function signOfDeed(call) {
  const found = deedSigns.find(([pattern]) => pattern.test(call));
  return found ? found[1] : 'A';
}

function keyItems(run, index, reply) {
  const range = run.record && run.record.replies[index];
  const chords = chordsOf(run.report.input).filter((chord) => (range ? chord.index >= range.firstKey && chord.index < range.endKey
                                                                     : chord.ms >= reply.startMs && chord.ms <= reply.endMs));
  return chords.map(({ms, keys, window, element}) => ({
    ms, kind: 'key', text: keys.replace('Enter', '\u21b5').split('+').at(-1).slice(0, 1), title: `Keys ${keys}`,
    lines: [window === null ? 'No window was in front' : `Into ${window}${element === null ? '' : `/${element}`}`],
  }));
}

// Without times of their own the steps are spread evenly.
function stepItems(reply) {
  const steps = traceOf(reply);
  const span = reply.endMs - reply.startMs;
  return steps.map(({step, result, outcome, ms}, index) => ({
    ms: ms ?? reply.startMs + (span * (index + 1)) / (steps.length + 1), isTimed: ms !== null,
    kind: `step ${outcome}`, text: signs[outcome], title: step, lines: [result], word: signWords[outcome],
  }));
}

function lanesOf(run, index) {
  const reply = run.report.replies[index];
  const recorded = run.record ? [
    {name: 'Waits', items: waitItems(run, index, true), isBars: true},
    {name: 'Waits of a second thread, meanwhile', items: waitItems(run, index, false), isBars: true},
    {name: 'Questions to UI Automation', items: questionItems(run, index), size: 26},
    {name: 'Actions', items: deedItems(run, index)},
  ] : [];
  const lanes = [...recorded, {name: 'Keys', items: keyItems(run, index, reply)}, {name: 'Steps and verdicts', items: stepItems(reply)}];
  return lanes.filter(({items}) => items.length > 0);
}

// ---- drawn

function units(number) {
  return `calc(${number.toFixed(2)} * var(--unit))`;
}

function makeItem(item, startMs) {
  const when = item.isTimed === false ? 'time not known' : `at ${inMs(item.ms - startMs)}`;
  const label = [`${item.title}, ${when}`, item.word, ...item.lines].filter(Boolean).join('. ');
  item.button = make('button', {
    type: 'button', class: `item ${item.kind}`, tabindex: -1, 'aria-label': label, 'data-ms': item.isTimed === false ? null : item.ms - startMs,
    style: {left: units(item.x), top: units(item.y * (itemSize + itemGap)), width: units(item.length || item.size)},
  }, !item.length || item.length > itemSize * 1.6 ? make('span', {'aria-hidden': 'true'}, item.text) : null);
  return item.button;
}

// A thin line from the first column of a stack to its true moment, and one below all of its columns.
function makeLeaders(lane, axis, width, height) {
  const stacks = new Map();
  for (const item of lane.isBars ? [] : lane.items) stacks.set(item.ms, [...(stacks.get(item.ms) || []), item]);
  const lines = [...stacks].map(([ms, items]) => {
    const bottom = height - 10 + itemGap;
    const middle = (items[0].x + items[0].size / 2).toFixed(1);
    const below = items.length > rowsOfStack ? `M${items[0].x} ${bottom}H${items.at(-1).x + items.at(-1).size}` : '';
    return makeSvg('path', {d: `M${axis.place(ms).toFixed(1)} ${height - 3}V${height - 5}L${middle} ${bottom}V0${below}`});
  });
  return makeSvg('svg', {class: 'leaders', viewBox: `0 0 ${width} ${height}`, 'aria-hidden': 'true', style: {width: units(width), height: units(height)}},
    makeSvg('path', {class: 'base', d: `M0 ${height - 3}H${width}`}), lines);
}

function makeLane(lane, axis, width, startMs) {
  const rows = 1 + Math.max(...lane.items.map(({y}) => y));
  const height = rows * (itemSize + itemGap) + 10;
  return make('div', {class: 'lane', role: 'group', 'aria-label': `${lane.name}: ${countOf(lane.items.length, 'item')}`},
    make('p', {class: 'laneName', 'aria-hidden': 'true'}, lane.name),
    make('div', {class: 'items', style: {height: units(height)}}, makeLeaders(lane, axis, width, height), lane.items.map((item) => makeItem(item, startMs))));
}

const tickLabel = 62;

// A tick too near to the end has no room for its time.
function makeTicks(axis, width) {
  return make('div', {class: 'ticks', 'aria-hidden': 'true'}, ticksOf(axis).map((ms) => {
    const at = axis.place(axis.startMs + ms);
    const hasRoom = at + tickLabel <= width;
    return make('span', {style: {left: units(at)}}, ms === 0 ? '0' : hasRoom ? `+ ${ms} ms` : '\u00a0');
  }));
}

class TimeLine {
  constructor(run, index) {
    const reply = run.report.replies[index];
    this.startMs = reply.startMs;
    this.lanes = lanesOf(run, index);
    this.isSpread = this.lanes.some(({items}) => items.some(({isTimed}) => isTimed === false));
    if (this.lanes.length === 0 || reply.endMs <= reply.startMs) return;
    const axis = layOut(this.lanes, reply.startMs, reply.endMs);
    const right = Math.max(axis.width + edge, ...this.lanes.flatMap(({items}) => items.map(({x, length, size}) => x + (length || size))));
    const width = Math.ceil(right + itemGap);
    this.detail = make('div', {class: 'detail', 'aria-live': 'polite'}, this.makeHint());
    this.track = make('div', {class: 'track', style: {'--width': width}}, makeTicks(axis, width),
      this.lanes.map((lane) => makeLane(lane, axis, width, reply.startMs)));
    this.element = make('div', {class: 'timeline', role: 'group', 'aria-label': `Time line of ${nameOf(reply)}`},
      make('div', {class: 'scroll'}, this.track), this.detail);
    this.listen();
  }

  makeHint() {
    const spread = this.isSpread ? ' The real program notes no time for a step of its trace: these stand in their order, evenly spread.' : '';
    return make('p', {class: 'hint'}, 'Choose an item for its details. Left and Right go along a lane, Up and Down to another, Home and End to its ends.' + spread);
  }

  listen() {
    this.lanes[this.lanes.length - 1].items[0].button.tabIndex = 0;
    this.track.addEventListener('focusin', (event) => this.select(event.target));
    this.track.addEventListener('click', (event) => {
      const button = event.target.closest('button');
      if (!button) return;
      button.focus();
      this.select(button);
    });
    this.track.addEventListener('keydown', (event) => this.go(event));
  }

  find(button) {
    for (let lane = 0; lane < this.lanes.length; lane += 1) {
      const index = this.lanes[lane].items.findIndex((item) => item.button === button);
      if (index >= 0) return {lane, index, item: this.lanes[lane].items[index]};
    }
    return null;
  }

  go(event) {
    const found = this.find(event.target);
    if (!found || event.ctrlKey || event.altKey || event.metaKey) return;
    const items = this.lanes[found.lane].items;
    const targets = {
      ArrowRight: () => items[Math.min(items.length - 1, found.index + 1)], ArrowLeft: () => items[Math.max(0, found.index - 1)],
      Home: () => items[0], End: () => items[items.length - 1],
      ArrowUp: () => this.nearest(found.lane - 1, found.item), ArrowDown: () => this.nearest(found.lane + 1, found.item),
    };
    if (!targets[event.key]) return;
    event.preventDefault();
    const target = targets[event.key]();
    if (target) target.button.focus();
  }

  nearest(lane, {ms}) {
    const items = this.lanes[lane] ? this.lanes[lane].items : [];
    return items.reduce((best, item) => (best === null || Math.abs(item.ms - ms) < Math.abs(best.ms - ms) ? item : best), null);
  }

  select(button) {
    const found = this.find(button);
    if (!found) return;
    for (const {items} of this.lanes) {
      for (const item of items) {
        item.button.tabIndex = item.button === button ? 0 : -1;
        item.button.classList.toggle('chosen', item.button === button);
      }
    }
    const {item, lane} = found;
    const from = inMs(Math.round(item.ms - this.startMs));
    const when = item.isTimed === false ? 'time not known' : item.endMs ? `${from} to ${inMs(item.endMs - this.startMs)}` : `at ${from}`;
    this.detail.replaceChildren(
      make('p', {class: 'when'}, `${this.lanes[lane].name}, ${when} of the call`),
      make('p', {class: 'what'}, make('strong', {}, item.title), item.word ? ` (${item.word})` : ''),
      item.lines.length > 1 ? make('ul', {}, item.lines.map((line) => make('li', {}, line))) : make('p', {}, item.lines),
      item.more && item.more.length > 0 ? make('p', {}, `About: ${item.more.join(', ')}`) : '');
  }
}
