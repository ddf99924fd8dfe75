// One section for each call of the interface.

const openRows = 30;

function callId(index) {
  return `call-${index + 1}`;
}

function callOf(scenario, reply, index) {
  const calls = (scenario.steps || []).filter((step) => step.call || step.bytes !== undefined);
  const planned = calls[index];
  return planned && (planned.as === undefined || planned.as === reply.as) ? planned : null;
}

function verdictWord(reply) {
  if (reply.kind === 'success' && !(isMap(reply.value) && 'success' in reply.value)) return 'replied';
  return hasSucceeded(reply) ? 'succeeded' : 'did not succeed';
}

function makeCallVerdict(reply) {
  const message = messageOf(reply);
  const stop = message && message.endsWith('.') ? '' : '.';
  return make('p', {class: 'callVerdict'}, makeSign(hasSucceeded(reply) ? 'good' : 'bad'), ' ', make('strong', {}, verdictWord(reply)),
    message ? `: ${message}` : '', `${stop} It took ${inMs(reply.endMs - reply.startMs)}, from ${inMs(reply.startMs)} on.`);
}

// What `{"$from": "activate.windowHandle"}` and its like stood for.
function resolved(run, value) {
  const window = isMap(value) && Object.keys(value).length === 1 ? value.$window ?? value.$windowText : undefined;
  if (typeof window === 'string') return `the handle of the window ${window}`;
  const reference = isMap(value) && Object.keys(value).length === 1 ? value.$from ?? value.$fromText : undefined;
  if (typeof reference !== 'string') return null;
  const [as, key] = [reference.slice(0, reference.indexOf('.')), reference.slice(reference.indexOf('.') + 1)];
  const reply = run.report.replies.find((one) => one.as === as);
  const found = reply && isMap(reply.value) ? reply.value[key] : undefined;
  return found === undefined ? `nothing: the reply \u201c${as}\u201d has no ${key}` : `${writeValue(found)}, the ${key} of the reply \u201c${as}\u201d`;
}

function makeValue(run, value) {
  const words = resolved(run, value);
  return words === null ? make('pre', {}, writeValue(value)) : make('p', {}, words);
}

function makeMap(run, value, leftOut) {
  if (!isMap(value)) return makeValue(run, value);
  const entries = Object.entries(value).filter(([key]) => !leftOut.includes(key));
  return entries.length === 0 ? make('p', {}, 'nothing') : makeFacts(entries.map(([key, part]) => [key, makeValue(run, part)]));
}

function makeArguments(run, reply, index) {
  const planned = callOf(run.scenario, reply, index);
  if (planned && planned.call) {
    return [make('p', {}, `On the channel ${planned.call.channel}:`), makeMap(run, planned.call.arguments ?? null, [])];
  }
  return planned ? [make('p', {}, `A raw message on the channel ${planned.channel}:`), make('pre', {}, planned.bytes || 'no byte')]
                 : [make('p', {}, 'not known')];
}

function makeReply(run, reply, hasTrace) {
  if (reply.kind === 'success') return makeMap(run, reply.value, hasTrace ? ['logs'] : []);
  return reply.kind === 'error' ? makeMap(run, reply.error, []) : make('p', {}, messageOf(reply));
}

function makeTrace(reply, trace) {
  const isTimed = trace.some(({ms}) => ms !== null);
  const rows = trace.map(({step, result, outcome, ms}) =>
    [...(isTimed ? [ms === null ? '' : `+ ${inMs(ms - reply.startMs)}`] : []), step, [makeSign(outcome), ' ', result]]);
  const table = makeTable(`Trace of ${nameOf(reply)}`, [...(isTimed ? ['Time'] : []), 'Step', 'Result'], rows, {className: isTimed ? 'trace timed' : 'trace'});
  return make('details', {open: trace.length <= openRows}, make('summary', {}, `The trace: ${countOf(trace.length, 'step')}`), table);
}

function makeTimeLine(run, index) {
  const {element} = new TimeLine(run, index);
  if (element) return [make('h3', {}, 'Time line'), element];
  const {startMs, endMs} = run.report.replies[index];
  return endMs > startMs ? null : make('p', {class: 'quiet'}, 'It took no time, so there is no time line.');
}

function makeCall(run, reply, index) {
  const trace = traceOf(reply);
  return makeSection(callId(index), `${index + 1}. ${nameOf(reply)}`, makeCallVerdict(reply), makeTimeLine(run, index),
    trace.length > 0 ? makeTrace(reply, trace) : null,
    make('div', {class: 'sides'}, make('div', {}, make('h3', {}, 'Arguments'), makeArguments(run, reply, index)),
      make('div', {}, make('h3', {}, 'Reply'), makeReply(run, reply, trace.length > 0))));
}
