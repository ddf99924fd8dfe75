// The desktop before and after a run. Where a run was recorded its scenes are exact; else they are put
// together from the scenario and the report.

const products = new Map([
  ['chrome.exe', 'Google Chrome'], ['msedge.exe', 'Microsoft Edge'], ['brave.exe', 'Brave'],
  ['firefox.exe', 'Mozilla Firefox'], ['vivaldi.exe', 'Vivaldi'],
]);
const stripHeight = 40;
const widestTab = 240;
const plainMonitors = [{bounds: [0, 0, 1920, 1080], work: [0, 0, 1920, 1040], dpi: 96}];
const plainBounds = [0, 0, 1280, 800];

function scenesOf(run) {
  const record = run.record || {};
  return {
    before: record.before || sceneOfScenario(run.scenario),
    after: record.after || sceneOfReport(run),
    isExact: Boolean(record.before && record.after),
  };
}

function monitorsOf(scenario) {
  const monitors = (scenario.desktop && scenario.desktop.monitors) || plainMonitors;
  return monitors.map(({bounds, work, dpi}) => ({bounds, work: work || bounds, dpi: dpi || 96}));
}

function plannedWindows(scenario) {
  return (scenario.desktop && scenario.desktop.windows) || [];
}

function flatten(elements) {
  return (elements || []).flatMap((element) => [element, ...flatten(element.children)]);
}

function plainElement(plan) {
  const element = {
    id: plan.id || null, type: plan.type ?? 'pane', name: plan.name || '', bounds: plan.bounds || [0, 0, 0, 0],
    enabled: plan.enabled !== false, offscreen: plan.offscreen === true, password: plan.password === true,
  };
  if (plan.value !== undefined) element.value = plan.value;
  return element;
}

function plainTabs([left, top, right], titles, selected) {
  const width = Math.min(widestTab, Math.floor((right - left) / Math.max(1, titles.length)));
  return titles.map((title, index) => ({
    title, selected: index === selected,
    bounds: [left + index * width, top, left + (index + 1) * width, top + stripHeight],
  }));
}

function addressBar(window, [left, top, right], address) {
  if (window.addressBar === null) return [];
  const plan = window.addressBar || {id: 'addressBar', type: 'edit', name: 'Address and search bar', value: address};
  return [plainElement({bounds: [left, top + stripHeight, right, top + 2 * stripHeight], ...plan})];
}

function plannedElements(window, bounds, tab) {
  if (!window.tabs) return flatten(window.elements).map(plainElement);
  return [...addressBar(window, bounds, tab ? tab.address || '' : ''), ...flatten(tab && tab.page).map(plainElement)];
}

function plannedTitle(window, tab) {
  if (window.title !== undefined) return window.title;
  if (!window.tabs) return '';
  const process = window.process || 'program.exe';
  const product = products.get(process) || process.replace(/\.[^.]*$/, '');
  return tab ? `${tab.title || ''} - ${product}` : product;
}

function sceneOfScenario(scenario) {
  const desktop = scenario.desktop || {};
  const windows = plannedWindows(scenario).map((window) => {
    const bounds = window.bounds || plainBounds;
    const selected = (window.tabs || []).findIndex((tab) => tab.selected);
    const tab = selected < 0 ? null : window.tabs[selected];
    return {
      id: window.id, process: window.process || 'program.exe', title: plannedTitle(window, tab), bounds,
      visible: window.visible !== false, minimized: window.minimized === true, topmost: window.topmost === true,
      tabs: window.tabs && plainTabs(bounds, window.tabs.map(({title}) => title || ''), selected),
      elements: plannedElements(window, bounds, tab),
    };
  });
  windows.sort((one, other) => Number(other.topmost) - Number(one.topmost));
  return {monitors: monitorsOf(scenario), foreground: desktop.foreground ?? null, focus: null, windows};
}

function sceneOfReport({scenario, report}) {
  const {desktop} = report;
  const windows = desktop.zOrder.filter((id) => desktop.windows[id]).map((id) => {
    const window = desktop.windows[id];
    const plan = plannedWindows(scenario).find((planned) => planned.id === id) || {};
    const {titles, selected} = desktop.tabs[id] || {};
    const tab = (plan.tabs || []).find(({title}) => titles && title === titles[selected]);
    return {
      id, process: plan.process || 'orvane.exe', title: window.title, bounds: window.bounds, visible: window.visible,
      minimized: window.minimized, topmost: window.topmost,
      tabs: titles && plainTabs(window.bounds, titles, selected),
      elements: withValues(plannedElements(plan, window.bounds, tab), id, desktop),
    };
  });
  return {monitors: monitorsOf(scenario), foreground: desktop.foreground, focus: desktop.focus, windows};
}

function withValues(elements, window, {values, focus}) {
  return elements.map((element) => {
    const place = `${window}/${element.id}`;
    return {...element, ...(place in values ? {value: values[place]} : {}), focused: element.id !== null && place === focus};
  });
}
