// Where moments and their items lie on a time line. All lengths are units that the style turns into pixels.

const itemSize = 18;
const itemGap = 2;
const rowsOfStack = 4;
const edge = 14;
const plainWidth = 954;
const widest = 2600;
const farthestShift = 50;
const leastBar = 4;

class Axis {
  constructor(startMs, endMs, width) {
    this.startMs = startMs;
    this.endMs = endMs;
    this.width = width;
  }

  place(ms) {
    return edge + ((ms - this.startMs) / (this.endMs - this.startMs)) * this.width;
  }
}

// Items of one moment stand in a stack; one that would cover its neighbour moves to the right. Gives
// each item its `x` and `y`, and how far any was moved.
function stackItems({items, size = itemSize}, axis) {
  let taken = -Infinity;
  let shift = 0;
  for (let first = 0; first < items.length;) {
    let end = first;
    while (end < items.length && items[end].ms === items[first].ms) end += 1;
    const at = axis.place(items[first].ms) - size / 2;
    const left = Math.max(at, taken);
    shift = Math.max(shift, left - at);
    for (let index = first; index < end; index += 1) {
      items[index].x = left + Math.floor((index - first) / rowsOfStack) * (size + itemGap);
      items[index].y = (index - first) % rowsOfStack;
      items[index].size = size;
    }
    taken = left + Math.ceil((end - first) / rowsOfStack) * (size + itemGap) + itemGap;
    first = end;
  }
  return shift;
}

// A bar is as long as what it stands for.
function layBars(items, axis) {
  for (const item of items) {
    item.x = axis.place(item.ms);
    item.length = Math.max(leastBar, axis.place(item.endMs) - item.x);
    item.y = 0;
  }
  return 0;
}

// The axis on which nothing has to move far, or the widest.
function layOut(lanes, startMs, endMs) {
  for (let width = plainWidth; ; width *= 1.4) {
    const axis = new Axis(startMs, endMs, Math.min(width, widest));
    const shifts = lanes.map((lane) => (lane.isBars ? layBars(lane.items, axis) : stackItems(lane, axis)));
    if (Math.max(0, ...shifts) <= farthestShift || width >= widest) return axis;
  }
}

// Round steps, at most about ten of them.
function ticksOf(axis) {
  const span = axis.endMs - axis.startMs;
  const least = span / Math.max(5, axis.width / 110);
  const power = 10 ** Math.floor(Math.log10(Math.max(1, least)));
  const step = [1, 2, 5, 10].map((factor) => factor * power).find((size) => size >= least);
  const ticks = [];
  for (let ms = 0; ms <= span; ms += step) ticks.push(ms);
  return ticks;
}
