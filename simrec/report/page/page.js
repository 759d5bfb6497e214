// What the page does: numbers under the pointer or the keyboard's cursor, timelines that zoom, and
// the choice of dark or light. Everything it tells is text; nothing is loaded.
'use strict';

// --- The numbers behind pictures: compressed lists, opened when they are first asked for.

const opened = new Map();

async function open(id) {
  const packed = Uint8Array.from(atob(document.getElementById(id).textContent), (character) =>
    character.charCodeAt(0));
  const stream = new Blob([packed]).stream().pipeThrough(new DecompressionStream('deflate'));
  const lists = new Map();
  for (const line of (await new Response(stream).text()).split('\n')) {
    const [name, tokens] = line.split('\t');
    if (tokens !== undefined) lists.set(name, tokens.split(','));
  }
  return lists;
}

/** The lists of a set by their names, each number by its text. */
function numbersOf(id) {
  if (!opened.has(id)) opened.set(id, open(id));
  return opened.get(id);
}

function place(index, columns) {
  if (!columns) return `number ${index}`;
  return `column ${index % columns}, row ${Math.floor(index / columns)} (number ${index})`;
}

/** Lists that people know by another name. */
const words = { qsegStatsInfo: 'label' };

function tell(readout, lists, names, index, columns) {
  const values = names
    .filter((name) => lists.has(name) && index < lists.get(name).length)
    .map((name) => `${words[name] ?? name} ${lists.get(name)[index].replaceAll('"', '')}`);
  readout.textContent = `${place(index, columns)}: ${values.join(', ')}`;
}

// --- Maps

/** Alt and Left goes back, Ctrl and + makes all larger. */
function isTheBrowsers(event) {
  return event.ctrlKey || event.altKey || event.metaKey;
}

/** Where a key leads from a place; undefined: it is no such key. */
function step(event, { column, row }, columns, rows) {
  if (isTheBrowsers(event)) return undefined;
  const far = event.shiftKey ? 10 : 1;
  const steps = {
    ArrowLeft: [-far, 0],
    ArrowRight: [far, 0],
    ArrowUp: [0, -far],
    ArrowDown: [0, far],
    PageUp: [0, -10],
    PageDown: [0, 10],
    Home: [-columns, 0],
    End: [columns, 0],
  };
  if (!(event.key in steps)) return undefined;
  const clamp = (value, most) => Math.max(0, Math.min(most - 1, value));
  const [right, down] = steps[event.key];
  return { column: clamp(column + right, columns), row: clamp(row + down, rows) };
}

/** A finger on a screen may go down without ever moving. */
function onPointer(element, tellOf) {
  for (const type of ['pointerdown', 'pointermove']) element.addEventListener(type, tellOf);
}

function setUpMap(map) {
  const columns = Number(map.dataset.columns);
  const rows = Number(map.dataset.rows);
  const names = map.dataset.lists.split(' ');
  const cursor = map.querySelector('.cursor');
  const readout = map.parentElement.querySelector('.readout');
  let at = { column: 0, row: 0 };

  async function show(next) {
    at = next;
    cursor.hidden = false;
    cursor.style.left = `${(100 * at.column) / columns}%`;
    cursor.style.top = `${(100 * at.row) / rows}%`;
    cursor.style.width = `${100 / columns}%`;
    cursor.style.height = `${100 / rows}%`;
    const lists = await numbersOf(map.dataset.numbers);
    tell(readout, lists, names, at.row * columns + at.column, columns);
  }

  onPointer(map, (event) => {
    const box = map.getBoundingClientRect();
    const part = (value, from, size, count) =>
      Math.max(0, Math.min(count - 1, Math.floor(((value - from) / size) * count)));
    show({
      column: part(event.clientX, box.left, box.width, columns),
      row: part(event.clientY, box.top, box.height, rows),
    });
  });
  map.addEventListener('keydown', (event) => {
    const next = step(event, at, columns, rows);
    if (next === undefined) return;
    event.preventDefault();
    show(next);
  });
  map.addEventListener('focus', () => {
    if (map.matches(':focus-visible')) show(at);
  });
}

/** Where the pointer is in a drawing's own units. */
function pointIn(svg, event) {
  return new DOMPoint(event.clientX, event.clientY).matrixTransform(svg.getScreenCTM().inverse());
}

// --- Regions in the plane of two ratios

function setUpScatter(scatter) {
  const svg = scatter.querySelector('svg');
  const mark = scatter.querySelector('.mark');
  const readout = scatter.parentElement.querySelector('.readout');
  const columns = Number(scatter.dataset.columns);
  let at = 0;

  /** The regions' places in the drawing; undefined: it has no dot. */
  async function dots() {
    const lists = await numbersOf(scatter.dataset.numbers);
    const drawn = scatter.querySelector('.dots').getAttribute('d').split('M').slice(1);
    const isThere = (index) =>
      ['R/G', 'B/G'].every((name) => Number.isFinite(Number(lists.get(name)[index])));
    let next = 0;
    return lists.get('R/G').map((_, index) =>
      isThere(index) ? drawn[next++].split(/[ h]/).map(Number) : undefined);
  }
  let known;
  const places = () => (known ??= dots());

  async function show(index) {
    const dot = (await places())[index];
    at = index;
    if (dot !== undefined) {
      mark.setAttribute('cx', dot[0]);
      mark.setAttribute('cy', dot[1]);
    }
    mark.setAttribute('visibility', dot !== undefined ? 'visible' : 'hidden');
    tell(readout, await numbersOf(scatter.dataset.numbers), ['R/G', 'B/G'], index, columns);
  }

  onPointer(scatter, async (event) => {
    const point = pointIn(svg, event);
    let nearest = 0;
    let least = Infinity;
    (await places()).forEach((dot, index) => {
      if (dot === undefined) return;
      const distance = Math.hypot(dot[0] - point.x, dot[1] - point.y);
      if (distance < least) [least, nearest] = [distance, index];
    });
    show(nearest);
  });
  scatter.addEventListener('keydown', async (event) => {
    // At once: after a wait the page would have scrolled.
    if (step(event, { column: 0, row: 0 }, 1, 1) === undefined) return;
    event.preventDefault();
    const count = (await places()).length;
    show(step(event, { column: at, row: 0 }, count, 1).column);
  });
}

// --- Lines and bars over an index

function setUpPlot(plot) {
  const svg = plot.querySelector('svg');
  const mark = plot.querySelector('.mark');
  const readout = plot.parentElement.querySelector('.readout');
  const names = plot.dataset.lists.split(' ');
  const [first, distance] = [Number(plot.dataset.first), Number(plot.dataset.step)];
  let at = 0;

  async function show(index) {
    const lists = await numbersOf(plot.dataset.numbers);
    at = Math.max(0, Math.min(lists.get(names[0]).length - 1, index));
    mark.setAttribute('x1', first + at * distance);
    mark.setAttribute('x2', first + at * distance);
    mark.setAttribute('visibility', 'visible');
    tell(readout, lists, names, at, 0);
  }

  onPointer(plot, (event) =>
    show(Math.round((pointIn(svg, event).x - first) / distance)));
  plot.addEventListener('keydown', (event) => {
    const next = step(event, { column: at, row: 0 }, Infinity, 1);
    if (next === undefined) return;
    event.preventDefault();
    show(next.column);
  });
}

// --- Timelines

const graphs = [];

const probe = document.body.appendChild(document.createElement('i'));

/** A colour as it is now, dark or light; the property itself has both. */
function colorOf(name) {
  probe.style.color = `var(${name})`;
  return getComputedStyle(probe).color;
}

const patterns = { 'series-1': [6, 3], 'series-2': [2, 3], 'series-3': [8, 3, 2, 3] };

/** The colours of a graph whose lines look as these names say. */
function paint(looks) {
  return {
    colors: looks.map((look) => colorOf(`--${look}`)),
    axisLineColor: colorOf('--edge'),
    gridLineColor: colorOf('--edge'),
  };
}

const prefixes = [[1e12, 'T'], [1e9, 'G'], [1e6, 'M'], [1e4, 'k']];

/** A number as an axis has it: "8 M" rather than 8.00e+6. */
function axisText(value) {
  const [factor, prefix] = prefixes.find(([from]) => Math.abs(value) >= from) ?? [1, ''];
  const unit = prefix === 'k' ? 1000 : factor;
  return `${Number((value / unit).toPrecision(6))}${prefix && ` ${prefix}`}`;
}

/** There is nothing between two requests. */
function requestText(value) {
  return Number.isInteger(value) ? String(value) : '';
}

/** All graphs show the same requests; null: all there are. */
function zoomTo(range) {
  for (const { graph, extent } of graphs) {
    graph.updateOptions({ dateWindow: range ?? extent, valueRange: null });
  }
}

const kLeastRequests = 4;

/** Zooms or moves around the middle of what is shown. */
function zoomBy(how) {
  if (graphs.length === 0) return;
  const [low, high] = graphs[0].graph.xAxisRange();
  const size = high - low;
  const ranges = {
    in: [low + size / 4, high - size / 4],
    out: [low - size / 2, high + size / 2],
    earlier: [low - size / 4, high - size / 4],
    later: [low + size / 4, high + size / 4],
    reset: null,
  };
  const range = ranges[how];
  const [first, last] = graphs[0].extent;
  const wide = range && Math.max(range[1] - range[0], kLeastRequests);
  // Never beyond what there is.
  if (range === null || wide > 0.999 * (last - first)) return zoomTo(null);
  const middle = (range[0] + range[1]) / 2;
  const from = Math.max(first, Math.min(last - wide, middle - wide / 2));
  zoomTo([from, from + wide]);
}

function setUpGraph(element, extent) {
  const { labels, looks, rows } = JSON.parse(element.dataset.graph);
  const readout = element.parentElement.querySelector('.readout');
  const series = {};
  looks.forEach((look, index) => {
    series[labels[index + 1]] = { strokePattern: patterns[look] ?? null };
  });
  let at = -1;

  function show(row) {
    at = row;
    const values = labels
      .map((label, index) => [label, rows[row][index]])
      .filter(([, value]) => value !== null)
      .map(([label, value]) => `${label} ${value}`);
    readout.textContent = values.join(', ');
  }

  const graph = new Dygraph(element, rows, {
    labels,
    series,
    ...paint(looks),
    plugins: [],
    drawPoints: rows.length < 300,
    pointSize: 2,
    strokeWidth: 1.5,
    connectSeparatedPoints: true,
    stepPlot: element.dataset.flag === 'true',
    includeZero: element.dataset.flag === 'true',
    dateWindow: extent,
    xRangePad: 4,
    axes: {
      x: { valueFormatter: String, axisLabelFormatter: requestText, pixelsPerLabel: 60 },
      y: { axisLabelWidth: 60, axisLabelFormatter: axisText, pixelsPerLabel: 25 },
    },
    highlightCallback: (event, x, points, row) => show(row),
    zoomCallback: (low, high) => zoomTo(graph.isZoomed('x') ? [low, high] : null),
    // Fingers scroll the page: by them a graph is read, and zoomed with the buttons.
    interactionModel: {
      mousedown: Dygraph.defaultInteractionModel.mousedown,
      willDestroyContextMyself: true,
      dblclick: () => zoomTo(null),
    },
  });
  graphs.push({ graph, element, extent, looks });

  function showAndMark(row) {
    show(row);
    graph.setSelection(row);
  }
  element.addEventListener('pointerdown', (event) => {
    if (event.pointerType !== 'mouse') showAndMark(graph.findClosestRow(graph.eventToDomCoords(event)[0]));
  });

  element.addEventListener('keydown', (event) => {
    const zooms = { '+': 'in', '-': 'out', 0: 'reset' };
    const next = step(event, { column: at, row: 0 }, rows.length, 1);
    if (event.key in zooms && !isTheBrowsers(event)) zoomBy(zooms[event.key]);
    else if (next !== undefined) showAndMark(next.column);
    else return;
    event.preventDefault();
  });
}

function setUpTimelines() {
  const elements = [...document.querySelectorAll('.graph')];
  if (elements.length === 0) return;
  Dygraph.PLUGINS = Dygraph.PLUGINS.filter((plugin) => plugin !== Dygraph.Plugins.Legend);
  const requests = elements.flatMap((element) =>
    JSON.parse(element.dataset.graph).rows.map((row) => row[0]));
  const low = Math.min(...requests);
  const high = Math.max(...requests);
  const margin = Math.max(1, (high - low) / 50);
  for (const element of elements) setUpGraph(element, [low - margin, high + margin]);
  const buttons = document.getElementById('zoom');
  buttons.hidden = false;
  buttons.addEventListener('click', (event) => {
    if (event.target.dataset.zoom) zoomBy(event.target.dataset.zoom);
  });
}

// --- Dark and light

const system = matchMedia('(prefers-color-scheme: dark)');

function isDark() {
  return (document.documentElement.dataset.theme ?? (system.matches ? 'dark' : 'light')) === 'dark';
}

function setUpTheme() {
  const repaint = () => {
    for (const { graph, looks } of graphs) graph.updateOptions(paint(looks));
  };
  const button = document.getElementById('theme');
  button.hidden = false;
  button.addEventListener('click', () => {
    document.documentElement.dataset.theme = isDark() ? 'light' : 'dark';
    repaint();
  });
  system.addEventListener('change', repaint);
}

// --- Paper, which is light and narrow whatever the screen is. What is drawn anew for it comes too
// late for some browsers, so graphs are shown smaller, and page.css turns their colours.

const kPaperWidth = 320;

function setUpPrinting() {
  addEventListener('beforeprint', () => {
    for (const { element } of graphs) {
      element.style.zoom = Math.min(1, kPaperWidth / element.clientWidth);
      element.classList.toggle('dark', isDark());
    }
  });
  addEventListener('afterprint', () => {
    for (const { element } of graphs) {
      element.style.zoom = '';
      element.classList.remove('dark');
    }
  });
}

for (const map of document.querySelectorAll('.map')) setUpMap(map);
for (const plot of document.querySelectorAll('.plot')) setUpPlot(plot);
for (const scatter of document.querySelectorAll('.scatter')) setUpScatter(scatter);
setUpTimelines();
setUpTheme();
setUpPrinting();
