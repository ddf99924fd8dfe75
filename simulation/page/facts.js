// What the run says, put in words.

// A number that a script can't hold to the letter, such as 2.0 or a long integer, keeps its text.
class Numeral {
  constructor(source) {
    this.source = source;
  }
}

function readData(json) {
  return JSON.parse(json, (key, value, context) => {
    const source = context && context.source;
    return typeof value === 'number' && source && String(value) !== source ? new Numeral(source) : value;
  });
}

function isMap(value) {
  return value !== null && typeof value === 'object' && !Array.isArray(value) && !(value instanceof Numeral);
}

// Such as {"$int64": 4}: a number that says of what width it is.
function isNumberForm(value) {
  const keys = Object.keys(value);
  return keys.length === 1 && ['$int32', '$int64', '$double'].includes(keys[0]);
}

function writeValue(value, indent = '') {
  const inner = `${indent}  `;
  if (value instanceof Numeral) return value.source;
  if (isMap(value) && isNumberForm(value)) return writeValue(Object.values(value)[0]);
  if (Array.isArray(value)) {
    const items = value.map((item) => writeValue(item, inner));
    const line = `[${items.join(', ')}]`;
    return line.length <= 80 && !line.includes('\n') ? line : `[\n${inner}${items.join(`,\n${inner}`)}\n${indent}]`;
  }
  if (isMap(value)) {
    const items = Object.entries(value).map(([key, item]) => `${JSON.stringify(key)}: ${writeValue(item, inner)}`);
    const line = `{${items.join(', ')}}`;
    return line.length <= 80 && !line.includes('\n') ? line : `{\n${inner}${items.join(`,\n${inner}`)}\n${indent}}`;
  }
  return JSON.stringify(value);
}

function inMs(ms) {
  return `${ms} ms`;
}

// As a reader counts them, not in units of storage.
function lengthOf(text) {
  return [...text].length;
}

function countOf(number, thing) {
  return `${number} ${thing}${number === 1 ? '' : 's'}`;
}

// ---- how a result reads, by its opening word

const openings = [
  ['PASS', 'good'], ['FAIL', 'bad'], ['BLOCKED', 'bad'], ['UNVERIFIED', 'doubt'], ['UNSTABLE', 'doubt'],
  ['RETRY', 'doubt'], ['MISS', 'doubt'], ['SKIP', 'doubt'], ['DISABLED', 'doubt'], ['ATTEMPTED', 'doubt'],
];
const signs = {good: '\u2713', bad: '\u2717', doubt: '?', plain: '\u2022'};
const signWords = {good: 'passed', bad: 'failed', doubt: 'in doubt', plain: 'noted'};

function outcomeOf(result) {
  const found = openings.find(([word]) => result.startsWith(word));
  return found ? found[1] : 'plain';
}

function makeSign(outcome) {
  return make('span', {class: `sign ${outcome}`, role: 'img', 'aria-label': signWords[outcome]}, signs[outcome]);
}

// ---- replies

function hasSucceeded(reply) {
  return reply.kind === 'success' && !(isMap(reply.value) && reply.value.success === false);
}

function nameOf(reply) {
  return reply.method === null ? 'raw message' : reply.method;
}

// [{step, result}] with `ms` where it is known.
function traceOf(reply) {
  const logs = isMap(reply.value) && Array.isArray(reply.value.logs) ? reply.value.logs : [];
  return logs.filter(isMap).map((entry, index) => ({
    step: String(entry.step), result: String(entry.result), outcome: outcomeOf(String(entry.result)),
    ms: reply.stepMs ? reply.stepMs[index] : null,
  }));
}

// The sentence that the reply itself has, or what kind of reply it was.
function messageOf(reply) {
  if (reply.kind === 'error') return `error "${reply.error.code}": ${reply.error.message}`;
  if (reply.kind === 'notImplemented') return 'the call is not implemented';
  if (reply.kind === 'none') return 'no reply came';
  if (reply.kind !== 'success') return 'the reply could not be read';
  if (isMap(reply.value)) {
    for (const key of ['message', 'detail', 'errorCode']) {
      if (typeof reply.value[key] === 'string' && reply.value[key] !== '') return reply.value[key];
    }
  }
  return '';
}

// The step that decided: of what did not succeed the last one that says so, else the last that isn't
// a time or a summary.
function decidingStep(reply) {
  const steps = traceOf(reply).filter(({step}) => !/^Timing |^Result$|^Cleanup$/.test(step));
  const bad = steps.filter(({outcome}) => outcome === 'bad');
  return (hasSucceeded(reply) || bad.length === 0 ? steps : bad).at(-1) || null;
}

// ---- the verdict

const delivery = 'pasteAndSubmit';

function verdictOf(report) {
  const replies = report.replies;
  const deliveries = replies.filter(({method}) => method === delivery);
  const counted = deliveries.length > 0 ? deliveries : replies;
  const good = counted.filter(hasSucceeded);
  const decisive = counted.find((reply) => !hasSucceeded(reply)) || counted.at(-1) || null;
  const outcome = good.length === counted.length && report.exitCode === 0 ? 'good' : 'bad';
  let sentence;
  if (counted.length === 0) {
    sentence = `No call was made, and the program ended with exit code ${report.exitCode}.`;
  } else if (deliveries.length === 0) {
    sentence = callsVerdict(replies, good);
  } else if (deliveries.length > 1) {
    sentence = `${good.length} of ${deliveries.length} prompts arrived.`;
  } else if (good.length === 0) {
    sentence = 'The prompt did not arrive, as far as the program could see.';
  } else {
    sentence = isBestEffort(deliveries[0]) ? 'The prompt was sent; nothing more than a cleared composer shows that it arrived.'
                                           : 'The prompt arrived.';
  }
  return {outcome, sentence, decisive: deliveries.length > 0 || outcome === 'bad' ? decisive : null};
}

function callsVerdict(replies, good) {
  if (good.length === replies.length) return ['', 'The call succeeded.', 'Both calls succeeded.'][replies.length] || `All ${replies.length} calls succeeded.`;
  if (replies.length === 1) return 'The call did not succeed.';
  return `${replies.length - good.length} of ${replies.length} calls did not succeed.`;
}

function isBestEffort(reply) {
  return messageOf(reply).startsWith('Experimental');
}

// ---- keys

const modifierNames = new Map([
  [0x11, 'Ctrl'], [0xA2, 'Ctrl'], [0xA3, 'Ctrl'], [0x10, 'Shift'], [0xA0, 'Shift'], [0xA1, 'Shift'],
  [0x12, 'Alt'], [0xA4, 'Alt'], [0xA5, 'Alt'], [0x5B, 'Win'], [0x5C, 'Win'], [0x14, 'CapsLock'],
]);
const keyNames = new Map([
  [0x08, 'Backspace'], [0x09, 'Tab'], [0x0D, 'Enter'], [0x1B, 'Escape'], [0x20, 'Space'], [0x23, 'End'],
  [0x24, 'Home'], [0x25, 'Left'], [0x26, 'Up'], [0x27, 'Right'], [0x28, 'Down'], [0x2E, 'Delete'],
]);

function keyName(key) {
  const isPlain = (key >= 0x30 && key <= 0x39) || (key >= 0x41 && key <= 0x5A);
  return isPlain ? String.fromCharCode(key) : keyNames.get(key) || `key ${key}`;
}

// Key events as chords: {ms, keys, window, element, index}, where `index` is that of the event which completes
// it. A modifier that is pressed alone is none.
function chordsOf(input) {
  const held = new Map();
  const chords = [];
  input.forEach((event, index) => {
    const modifier = modifierNames.get(event.vk);
    if (event.up) {
      held.delete(event.vk);
    } else if (modifier) {
      held.set(event.vk, modifier);
    } else {
      const keys = [...[...held.keys()].sort((one, other) => one - other).map((key) => held.get(key)), keyName(event.vk)];
      chords.push({ms: event.ms, keys: keys.join('+'), window: event.window, element: event.element, index});
    }
  });
  return chords;
}

// ---- the clipboard

function clipboardBefore(run) {
  const clipboard = (run.scenario.desktop && run.scenario.desktop.clipboard) || {};
  const noted = run.record && run.record.clipboard[0];
  return {text: noted ? noted.text : clipboard.text ?? null, html: clipboard.html ?? null};
}

// The text that a paste at this time finds; undefined where nobody kept it.
function clipboardAt(run, ms) {
  if (run.record) {
    const noted = run.record.clipboard.filter((entry) => entry.ms <= ms).at(-1);
    return noted ? noted.text : undefined;
  }
  const before = clipboardBefore(run).text;
  const after = run.report.desktop.clipboard;
  return after && after.text === before ? before : undefined;
}

// A field's text as far as a picture tells it: never the text itself.
function describeText(run, text) {
  if (text === null || text === undefined) return 'not readable';
  if (text === '') return 'empty';
  const size = countOf(lengthOf(text), 'character');
  return text === clipboardBefore(run).text ? `the text of the clipboard, ${size}` : size;
}
