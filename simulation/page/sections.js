// The sections around the calls.

// ---- what happened, in order

const personsDeeds = {
  foreground: (window) => (window === null ? 'takes every window from the front' : `brings ${window} to the front`),
  close: (window) => `closes ${window}`,
  minimize: (window) => `minimises ${window}`,
  resize: ({window, bounds}) => `drags ${window} to ${placeText(bounds)}`,
  switchTab: ({window, title}) => `selects the tab \u201c${title}\u201d of ${window}`,
  chooseMenu: (entry) => (entry === null ? 'will dismiss the next menu' : `will choose entry ${entry} of the next menu`),
};

function wordsOfStep(step) {
  if (step.wait !== undefined) return `The interface waits ${inMs(step.wait)}`;
  if (step.user) {
    const [deed, what] = Object.entries(step.user)[0];
    return `A person ${personsDeeds[deed] ? personsDeeds[deed](what) : deed}`;
  }
  if (step.post) return `Another program posts message ${step.post.message} to ${step.post.window}`;
  const deeds = (step.do || []).map((action) => Object.keys(action)[0]).join(', ');
  return `The desktop changes${step.window ? ` in ${step.window}` : ''}: ${deeds}`;
}

function makeCallItem(reply, index) {
  if (!reply) return make('li', {}, 'A call was not made any more');
  const message = messageOf(reply);
  return make('li', {}, make('span', {class: 'time'}, inMs(reply.startMs)), ' ', makeSign(hasSucceeded(reply) ? 'good' : 'bad'), ' ',
    make('a', {href: `#${callId(index)}`}, nameOf(reply)), ` ${verdictWord(reply)}${message ? `: ${message}` : ''} `,
    make('span', {class: 'quiet'}, `took ${inMs(reply.endMs - reply.startMs)}`));
}

function makeStory({scenario, report}) {
  let calls = 0;
  return make('ol', {class: 'story'}, (scenario.steps || []).map((step) => {
    if (!step.call && step.bytes === undefined) return make('li', {}, wordsOfStep(step));
    const index = calls;
    calls += 1;
    return makeCallItem(report.replies[index], index);
  }));
}

// Calls to the scale of the whole run; the list below says the same in words.
function makeWholeRun({report}) {
  const end = Math.max(lastMs(report), ...report.replies.map(({endMs}) => endMs));
  if (end <= 0) return null;
  const share = (ms) => `${((ms / end) * 100).toFixed(3)}%`;
  return make('div', {class: 'whole', 'aria-hidden': 'true'}, report.replies.map((reply, index) =>
    make('span', {class: `part ${hasSucceeded(reply) ? 'good' : 'bad'}`, style: {left: `min(${share(reply.startMs)}, 100% - 5px)`, width: share(reply.endMs - reply.startMs)}},
      reply.endMs - reply.startMs > end / 30 ? String(index + 1) : '')),
    make('span', {class: 'from'}, '0'), make('span', {class: 'to'}, inMs(end)));
}

function lastMs(report) {
  return report.virtualMs ?? report.realMs ?? 0;
}

function makeRun(run) {
  return makeSection('run-section', 'The run, in order', makeWholeRun(run), makeStory(run));
}

// ---- the desktop

function makeDesktop(run) {
  const scenes = scenesOf(run);
  return makeSection('desktop', 'The desktop', make('p', {}, 'Drawn to scale: windows as they lie on one another, tabs, the controls that UI Automation shows. Texts in fields are told by their length alone.'),
    makeLegend(scenes), makeScene(run, scenes.before, 'Before', {marksTouches: false, when: 'before the first call'}),
    makeScene(run, scenes.after, 'After', {marksTouches: true, when: 'at the end'}));
}

// ---- keys, fields, the clipboard

function makeText(text) {
  if (text === undefined) return 'not known';
  if (text === null) return 'no text';
  return text === '' ? 'an empty text' : make('pre', {}, text);
}

function effectOf(run, {keys, ms}) {
  if (keys === 'Ctrl+V') {
    const text = clipboardAt(run, ms);
    return text === undefined || text === null ? 'pastes the clipboard' : ['pastes the clipboard:', makeText(text)];
  }
  return {'Ctrl+A': 'selects all', Enter: 'Enter', Escape: 'Escape'}[keys] || '';
}

function makeKeys(run) {
  const chords = chordsOf(run.report.input);
  if (chords.length === 0) return makeSection('keys', 'What was typed where', make('p', {}, 'No key was sent.'));
  const rows = chords.map((chord) => [inMs(chord.ms), make('kbd', {}, chord.keys), chord.window ?? 'no window',
    chord.element ?? 'no field with a name', effectOf(run, chord)]);
  return makeSection('keys', 'What was typed where', makeTable(countOf(run.report.input.length, 'key event') + ', as chords',
    ['Time', 'Keys', 'Window', 'Field', 'What it does there'], rows, {className: 'keys'}));
}

function valuesOf(scene) {
  return new Map(scene.windows.flatMap(({id, elements}) => elements.filter((element) => element.id && 'value' in element)
    .map((element) => [`${id}/${element.id}`, element])));
}

function makeFields(run) {
  const {before, after} = scenesOf(run);
  const [old, now] = [valuesOf(before), valuesOf(after)];
  const places = [...new Set([...old.keys(), ...now.keys()])];
  if (places.length === 0) return null;
  const say = (element, place) => (element === undefined ? 'not there'
    : place.endsWith('/addressBar') ? element.value || 'empty' : describeText(run, element.value));
  const rows = places.map((place) => {
    const [was, is] = [say(old.get(place), place), say(now.get(place), place)];
    return [place, was, is === was ? 'the same' : make('strong', {}, is)];
  });
  return makeSection('fields', 'What fields hold', makeTable('Fields of the tabs that are selected', ['Field', 'Before', 'After'], rows, {headsRows: true}));
}

function makeClipboard(run) {
  const before = clipboardBefore(run);
  const after = run.report.desktop.clipboard || {text: undefined, html: undefined};
  const side = (title, {text, html}) => make('div', {}, make('h3', {}, title),
    makeFacts([['text', makeText(text)], ...(html === null || html === undefined ? [] : [['HTML', makeText(html)]])]));
  const isSame = before.text === after.text && before.html === after.html;
  return makeSection('clipboard', 'The clipboard', make('div', {class: 'sides'}, side(isSame ? 'Before and after' : 'Before', before), isSame ? null : side('After', after)));
}

// ---- the rest

function makeMenus({report}) {
  const painted = report.painted || [];
  return painted.filter(({entries}) => entries).map((opened) => {
    const texts = [...new Set(painted.filter(({menu, text}) => menu === opened.menu && text !== undefined).map(({text}) => text))];
    const chosen = opened.entries.findIndex(({id}) => id === opened.chosen);
    return make('li', {}, `A menu of ${countOf(opened.entries.length, 'entry').replace('entrys', 'entries')} at ${opened.point.join(', ')} over ${opened.owner}: `,
      texts.map((text, index) => [index > 0 ? ', ' : '', make('q', {}, text)]), '. ', chosen < 0 ? 'None was chosen.' : `Entry ${chosen + 1} was chosen.`);
  });
}

function makeOthers(run) {
  const {report} = run;
  const shell = (report.shell || []).map(({verb, file, parameters, owner}) =>
    make('li', {}, `Windows was asked to ${verb || 'open'} `, make('q', {}, file || ''), parameters ? ` with ${parameters}` : '', owner ? ` for ${owner}` : ''));
  const asked = report.toInterface.map(({method, channel, ms}) => make('li', {}, `${inMs(ms)}: the program called ${method} of the interface on ${channel}`));
  const posted = (report.posted || []).map(({window, message}) => make('li', {}, `Message ${message} was posted to ${window ?? 'no window'}`));
  const items = [...makeMenus(run), ...shell, ...asked, ...posted];
  return items.length === 0 ? null : makeSection('others', 'What else happened', make('ul', {}, items));
}

function makeEnd(run) {
  const {report} = run;
  const lines = report.stderr.length === 0 ? 'none' : make('pre', {}, report.stderr.join('\n'));
  return makeSection('end', 'The end', makeFacts([['exit code', String(report.exitCode)], ['error lines', lines],
    [report.realMs === undefined ? 'virtual time' : 'real time', inMs(lastMs(report))]]));
}

// ---- head and foot

function makeUnmet(run) {
  if (run.unmet.length === 0) return null;
  return make('div', {class: 'unmet'}, make('p', {}, make('strong', {}, `${run.unmet.length} of the scenario\u2019s expectations did not come true:`)),
    make('ul', {}, run.unmet.map((line) => make('li', {}, line))));
}

function makeReason(reply) {
  if (!reply) return null;
  const step = decidingStep(reply);
  const message = messageOf(reply);
  return [make('p', {}, `${nameOf(reply)} ${verdictWord(reply)}`, message ? [': ', make('q', {}, message)] : '.'),
    step ? make('p', {}, 'The step that decided: ', make('strong', {}, step.step), ' ', makeSign(step.outcome), ` ${step.result}`) : null];
}

function makeHead(run) {
  const {report} = run;
  const verdict = verdictOf(report);
  const world = report.realMs === undefined ? 'inside the simulated Windows, on a virtual clock' : 'by orvane.exe itself, on the real clock';
  const title = report.name || run.file;
  document.title = `${title} \u2013 a run of Orvane`;
  return [make('p', {class: 'kind'}, 'A run of Orvane'), make('h1', {}, title),
    make('div', {class: `verdict ${verdict.outcome}`}, make('p', {class: 'sentence'}, makeSign(verdict.outcome), ' ', verdict.sentence), makeReason(verdict.decisive)),
    makeUnmet(run),
    make('p', {class: 'quiet'}, `${run.file}, played ${world}: ${countOf(report.replies.length, 'call')}, ${countOf(chordsOf(report.input).length, 'key chord')}, ${inMs(lastMs(report))}.`)];
}

function makeContents(sections) {
  return make('ul', {}, sections.map((section) => make('li', {}, make('a', {href: `#${section.id}`}, section.querySelector('h2').textContent))));
}
