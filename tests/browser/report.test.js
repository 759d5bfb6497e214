// Pages of simrec report in a browser: what is drawn, what is read out, what can be reached, and
// whether a person finds the answers.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import { createRequire } from 'node:module';
import os from 'node:os';
import path from 'node:path';
import { after, before, test } from 'node:test';
import { launch, open } from './browser.js';
import { hostileName, makeData, settledFrom, show, simrec } from './data.js';
import { expected, isShown, reddest } from './expected.js';

const axe = createRequire(import.meta.url).resolve('axe-core/axe.min.js');
const root = fs.mkdtempSync(path.join(os.tmpdir(), 'simrec-browser-'));
const data = path.join(root, 'data');
const files = Object.fromEntries(['overview', 'one', 'both', 'hostile'].map((name) =>
  [name, path.join(root, `${name}.html`)]));
let names;
let browser;

before(async () => {
  names = makeData(data);
  simrec(data, 'report', '-o', files.overview);
  simrec(data, 'report', names.image, '-o', files.one);
  simrec(data, 'report', '--compare', names.image, names.changed, '-o', files.both);
  simrec(data, 'report', hostileName, names.broken.capture, '-o', files.hostile);
  browser = await launch();
});

after(async () => {
  await browser?.close();
  fs.rmSync(root, { recursive: true });
});

/** Calls `use` with each page, and sees that it was silent and kept to itself. */
async function onEach(which, use, options) {
  for (const name of which) {
    const opened = await open(browser, files[name], options);
    await use(opened.page, name);
    assert.deepEqual(opened.said, [], `the console of ${name}`);
    assert.deepEqual(opened.asked, [], `requests of ${name}`);
    await opened.close();
  }
}

/** As in C's linear congruential generators: the same places each time. */
function randomNumbers(seed) {
  let state = seed;
  return (limit) => {
    state = (Math.imul(state, 1103515245) + 12345) >>> 0;
    return Math.floor((state / 2 ** 32) * limit);
  };
}

test('every picture is drawn, and not of one colour', async () => {
  await onEach(Object.keys(files), async (page, name) => {
    const flat = await page.evaluate(async () => {
      const bad = [];
      for (const image of document.querySelectorAll('main img')) {
        await image.decode();
        const canvas = document.createElement('canvas');
        [canvas.width, canvas.height] = [image.naturalWidth, image.naturalHeight];
        const context = canvas.getContext('2d');
        context.drawImage(image, 0, 0);
        const pixels = new Uint32Array(context.getImageData(0, 0, canvas.width, canvas.height).data.buffer);
        const shown = image.getBoundingClientRect();
        if (pixels.every((pixel) => pixel === pixels[0]) || shown.width < 8) bad.push(image.alt);
      }
      return bad;
    });
    assert.deepEqual(flat, [], name);
  });
});

test('the graphs are drawn', async () => {
  await onEach(['overview'], async (page) => {
    assert.ok((await page.locator('.graph').count()) >= 10);
    const blank = await page.evaluate(() => [...document.querySelectorAll('.graph')].filter((graph) =>
      ![...graph.querySelectorAll('canvas')].some((canvas) =>
        canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data.some((byte) => byte !== 0)))
      .map((graph) => graph.getAttribute('aria-label')));
    assert.deepEqual(blank, []);
  });
});

/** "column 3, row 5 (number 183): R/G 0.5, RSum 70" taken apart. */
function parse(readout) {
  const [, index, values] = readout.match(/^.*?number (\d+)\)?: (.*)$/);
  return { index: Number(index), values: values.split(', ').map((pair) => pair.split(' ')) };
}

const fileOf = (element) =>
  element.evaluate((each) => each.closest('article').querySelector('.file').textContent);

/** Moves the pointer to 20 places of each map and calls `check` with what is read out there. */
async function readMaps(page, maps, check) {
  const random = randomNumbers(1);
  for (const map of maps) {
    const [columns, rows] = await map.evaluate(({ dataset }) => [+dataset.columns, +dataset.rows]);
    const readout = await map.locator('xpath=../output').elementHandle();
    await map.scrollIntoViewIfNeeded();
    const box = await map.boundingBox();
    for (let round = 0; round < 20; ++round) {
      const [column, row] = [random(columns), random(rows)];
      await page.mouse.move(box.x + (box.width * (column + 0.5)) / columns,
        box.y + (box.height * (row + 0.5)) / rows);
      const index = row * columns + column;
      await page.waitForFunction(([element, text]) => element.textContent.includes(text),
        [readout, `(number ${index})`]);
      const { values } = parse(await readout.textContent());
      assert.ok(values.length > 0);
      for (const [name, text] of values) await check(map, name, text, index, columns);
    }
  }
}

test('the read-out under the pointer is what show has', async () => {
  const records = show(data, names.image);
  await onEach(['one'], async (page) => {
    const maps = await page.locator('.map').all();
    assert.ok(maps.length >= 20, `${maps.length} maps`);
    await readMaps(page, maps, async (map, name, text, index, columns) => {
      const file = await fileOf(map);
      const number = expected(records.find((each) => each.file === file), name, index, columns);
      assert.ok(isShown(text, number), `${file}: ${name} is ${number}, told ${text}`);
    });
  });
});

test('so it is side by side', async () => {
  const lists = { 'Mean level': 'level', 'R gain': 'rGain', 'Label map': 'qsegStatsInfo', 'Changed labels': 'qsegStatsInfo' };
  const [a, b] = [names.image, names.changed].map((capture) => show(data, capture));
  await onEach(['both'], async (page) => {
    const maps = await page.locator('#comparison .map').all();
    assert.ok(maps.length >= 12, `${maps.length} maps`);
    await readMaps(page, maps, async (map, name, text, index) => {
      const file = await fileOf(map);
      const title = (await map.locator('xpath=../figcaption').textContent()).split(',')[0];
      const at = (records) => expected(records.find((each) => each.file === file), lists[title] ?? title, index);
      const number = { A: at(a), B: at(b), 'B-A': at(b) - at(a) }[name];
      assert.ok(isShown(text, number) || Math.abs(text - number) < 1e-6, `${file}: ${title}, ${name}: ${number}, told ${text}`);
    });
  });
});

test('dots of the R/G-B/G plane tell their region', async () => {
  const records = show(data, names.image);
  const random = randomNumbers(2);
  await onEach(['one'], async (page) => {
    for (const scatter of await page.locator('.scatter').all()) {
      const file = await fileOf(scatter);
      const record = records.find((each) => each.file === file);
      const readout = scatter.locator('xpath=../output');
      for (let round = 0; round < 20; ++round) {
        await scatter.hover({ position: { x: 10 + random(270), y: 10 + random(180) } });
        await page.waitForFunction((element) => element.textContent.includes('R/G'), await readout.elementHandle());
        const { index, values } = parse(await readout.textContent());
        for (const [name, text] of values) assert.ok(isShown(text, expected(record, name, index)), name);
      }
    }
  });
});

test('lines and bars tell their numbers', async () => {
  const records = show(data, names.image);
  await onEach(['one'], async (page) => {
    for (const plot of await page.locator('.plot').all()) {
      const file = await fileOf(plot);
      const { values } = records.find((each) => each.file === file);
      const readout = plot.locator('xpath=../output');
      await plot.focus();
      await page.keyboard.press('End');
      await page.waitForFunction((element) => element.textContent.includes(': '), await readout.elementHandle());
      for (let round = 0; round < 20; ++round) await page.keyboard.press('ArrowLeft');
      await page.waitForFunction((element) => element.textContent.startsWith('number 0'), await readout.elementHandle());
      const toldOf = async () => parse(await readout.textContent()).values.filter(([name]) => name !== 'distance');
      const [first] = await toldOf();
      const wanted = values.channelDatas?.[0] ?? values.rGain[0] / values.rGain[110];
      assert.ok(isShown(first[1], wanted), `${first} instead of ${wanted}`);
      const box = await plot.locator('.frame').boundingBox();
      await page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
      await page.waitForFunction((element) => !element.textContent.startsWith('number 0'), await readout.elementHandle());
      const { index } = parse(await readout.textContent());
      const told = await toldOf();
      const expectedHere = values.channelDatas?.[index] ?? 1;
      assert.ok(isShown(told[0][1], expectedHere), `${told[0]} instead of ${expectedHere}`);
    }
  });
});

/** Where a drawing's axis, as a person reads it, has a number: between the first and the last tick. */
async function axisOf(drawing, kind) {
  const ticks = await drawing.locator(`text.${kind}:not(.title)`).evaluateAll((texts, across) =>
    texts.map((text) => {
      const [, number, prefix] = text.textContent.match(/^(-?[\d.]+)( k)?$/) ?? [];
      return { value: number * (prefix ? 1000 : 1), at: Number(text.getAttribute(across ? 'x' : 'y')) };
    }).filter(({ value }) => !Number.isNaN(value)), kind === 'across');
  const [first, last] = [ticks[0], ticks.at(-1)];
  assert.ok(ticks.length >= 2 && ticks.length <= 6, `${ticks.length} ticks`);
  return (value) => first.at + ((value - first.value) * (last.at - first.at)) / (last.value - first.value);
}

test('axes agree with what is drawn', async () => {
  const records = show(data, names.image);
  const near = (drawn, wanted, what) => assert.ok(Math.abs(drawn - wanted) < 0.2, `${what}: ${drawn}, not ${wanted}`);
  await onEach(['one'], async (page) => {
    const drawings = await page.locator('.drawing').all();
    assert.ok(drawings.length >= 8, `${drawings.length} drawings`);
    for (const drawing of drawings) {
      const file = await fileOf(drawing);
      const record = records.find((each) => each.file === file);
      const up = await axisOf(drawing, 'up');
      const attribute = (selector, name) => drawing.locator(selector).first().getAttribute(name);
      if (record.record === 'ZOAWB_SpectralSensorInfo') {
        near(await attribute('.bar', 'y'), up(record.values.channelDatas[0]), 'a bar');
      } else if (record.record === 'LSC') {
        const [, y] = (await attribute('.line.R', 'points')).split(' ')[0].split(',');
        near(y, up(record.values.rGain[0] / record.values.rGain[110]), 'a gain');
      } else {
        const across = await axisOf(drawing, 'across');
        const [x, y] = (await attribute('.dots', 'd')).slice(1).split(/[ h]/);
        near(x, across(expected(record, 'R/G', 0)), 'R/G');
        near(y, up(expected(record, 'B/G', 0)), 'B/G');
      }
    }
  });
});

test('instances and their parts can be hidden, each alone', async () => {
  await onEach(['one'], async (page) => {
    const picture = page.locator('.picture', { has: page.locator('.overlay') }).first();
    const seen = () => Promise.all(['.instance', '.overlay text', '.part'].map((each) =>
      picture.locator(each).first().isVisible()));
    assert.deepEqual(await seen(), [true, true, true]);
    await picture.locator('.frames').uncheck();
    assert.deepEqual(await seen(), [false, false, true]);
    await picture.locator('.parts').uncheck();
    await picture.locator('.frames').check();
    assert.deepEqual(await seen(), [true, true, false]);
    const hidden = await picture.locator('.overlay text').evaluateAll((texts) => {
      const boxes = texts.map((text) => text.getBoundingClientRect());
      const overlap = (a, b) => a.left < b.right - 2 && b.left < a.right - 2 && a.top < b.top + 8 && b.top < a.top + 8;
      return boxes.some((a, i) => boxes.some((b, j) => i < j && overlap(a, b)));
    });
    assert.equal(hidden, false, 'numbers hide each other');
  });
});

test('timelines zoom and reset, all together', async () => {
  await onEach(['overview'], async (page) => {
    const ranges = () => page.evaluate(() => graphs.map(({ graph }) => graph.xAxisRange().join()));
    const all = await ranges();
    assert.ok(all.length >= 5);
    assert.equal(new Set(all).size, 1);
    const graph = page.locator('.graph').first();
    await graph.scrollIntoViewIfNeeded();
    const box = await graph.boundingBox();
    await page.mouse.move(box.x + box.width * 0.4, box.y + box.height / 2);
    await page.mouse.down();
    await page.mouse.move(box.x + box.width * 0.7, box.y + box.height / 2, { steps: 5 });
    await page.mouse.up();
    const zoomed = await ranges();
    assert.notEqual(zoomed[0], all[0]);
    assert.equal(new Set(zoomed).size, 1);
    await page.mouse.dblclick(box.x + box.width / 2, box.y + box.height / 2);
    assert.deepEqual(await ranges(), all);
    const press = (name) => page.getByRole('button', { name }).click();
    for (const how of ['Zoom out', 'Earlier', 'Later']) {
      await press(how);
      assert.deepEqual(await ranges(), all, `${how}, where there is nothing more`);
      await press('Zoom in');
      const near = await ranges();
      assert.notDeepEqual(near, all);
      await press(how);
      assert.notDeepEqual(await ranges(), near, how);
      await press('Reset zoom');
      assert.deepEqual(await ranges(), all);
    }
    for (let times = 0; times < 12; times += 1) await press('Zoom in');
    const [low, high] = (await ranges())[0].split(',').map(Number);
    assert.ok(high - low > 3.99);
    await graph.focus();
    await page.keyboard.press('Control+0');
    assert.equal((await ranges())[0], [low, high].join(), 'the browser has that key');
    await press('Reset zoom');
    await page.mouse.move(box.x + box.width / 2, box.y + box.height / 2);
    assert.match(await graph.locator('xpath=../output').textContent(), /^request \d+, camera/);
  });
});

test('a flag is drawn from 0 on, as steps', async () => {
  await onEach(['overview'], async (page) => {
    const flags = await page.evaluate(() => graphs
      .filter(({ graph }) => graph.getOption('stepPlot')).map(({ graph }) => graph.yAxisRange()[0]));
    assert.equal(flags.length, 1);
    assert.ok(flags[0] <= 0);
  });
});

test('a finger that goes down reads out, and End does not scroll', async () => {
  const { page, close } = await open(browser, files.one, { hasTouch: true });
  for (const selector of ['.map', '.scatter', '.plot']) {
    const picture = page.locator(selector).first();
    await picture.tap();
    await page.waitForFunction((element) => element.textContent.includes('number '),
      await picture.locator('xpath=../output').elementHandle());
    await picture.focus();
    const before = await page.evaluate(() => scrollY);
    for (const key of ['PageDown', 'End']) await page.keyboard.press(key);
    await page.waitForTimeout(200);
    assert.equal(await page.evaluate(() => scrollY), before, selector);
  }
  await close();
});

test('on paper all is light, narrow, and whole', async () => {
  const { page, close } = await open(browser, files.overview, { colorScheme: 'dark' });
  await page.getByRole('button', { name: 'Dark or light' }).click();
  await page.getByRole('button', { name: 'Dark or light' }).click();
  await page.emulateMedia({ media: 'print' });
  assert.equal(await page.evaluate(() => getComputedStyle(document.body).backgroundColor),
    'rgb(255, 255, 255)');
  assert.deepEqual(await page.evaluate(() => [...document.querySelectorAll('.wide')]
    .filter((table) => getComputedStyle(table).maxHeight !== 'none')), []);
  // As a browser does it: the page is told before it is laid out for paper.
  await page.emulateMedia({ media: 'screen' });
  await page.evaluate(() => dispatchEvent(new Event('beforeprint')));
  await page.emulateMedia({ media: 'print' });
  const looks = () => page.evaluate(() => [...document.querySelectorAll('.graph')].map((graph) =>
    [Math.round(graph.getBoundingClientRect().width), getComputedStyle(graph.firstChild.firstChild).filter].join(' ')));
  for (const look of await looks()) assert.match(look, /^3[12]\d invert/);
  await page.evaluate(() => dispatchEvent(new Event('afterprint')));
  for (const look of await looks()) assert.match(look, / none$/);
  await close();
});

test('a finger reads a graph, and moves the page, not the graph', async () => {
  const { page, close } = await open(browser, files.overview, { hasTouch: true, width: 390 });
  const graph = page.locator('.graph').first();
  await graph.tap();
  assert.match(await graph.locator('xpath=../output').textContent(), /^request \d+, /);
  const kept = await graph.evaluate((element) => {
    const touch = new Touch({ identifier: 1, target: element, clientX: 100, clientY: 100 });
    return ['touchstart', 'touchmove'].every((type) => element.querySelector('canvas').dispatchEvent(
      new TouchEvent(type, { touches: [touch], bubbles: true, cancelable: true })));
  });
  assert.ok(kept, 'what a finger does is left to the browser');
  await close();
});

test('the keyboard reaches everything and moves in it', async () => {
  await onEach(['overview', 'one'], async (page) => {
    const wanted = await page.evaluate(() => {
      const all = [...document.querySelectorAll('a[href], button, summary, input, [tabindex="0"]')]
        .filter((element) => element.checkVisibility());
      window.missed = new Set(all);
      document.addEventListener('focusin', (event) => window.missed.delete(event.target));
      return all.length;
    });
    for (let i = 0; i <= wanted; ++i) await page.keyboard.press('Tab');
    assert.deepEqual(await page.evaluate(() => [...window.missed].map((each) => each.outerHTML.slice(0, 200))), []);
  });
  await onEach(['one'], async (page) => {
    for (const selector of ['.map', '.scatter']) {
      const picture = page.locator(selector).first();
      const readout = picture.locator('xpath=../output');
      await picture.focus();
      for (const key of ['ArrowRight', 'ArrowRight', 'ArrowRight', 'ArrowLeft']) await page.keyboard.press(key);
      await page.waitForFunction((element) => element.textContent.includes('column 2, row 0 (number 2)'),
        await readout.elementHandle());
    }
  });
  await onEach(['overview'], async (page) => {
    const graph = page.locator('.graph').first();
    const range = () => page.evaluate(() => graphs[0].graph.xAxisRange().join());
    const all = await range();
    await graph.focus();
    await page.keyboard.press('ArrowRight');
    assert.match(await graph.locator('xpath=../output').textContent(), /^request \d+/);
    await page.keyboard.press('+');
    assert.notEqual(await range(), all);
    await page.keyboard.press('0');
    assert.equal(await range(), all);
  });
});

for (const colorScheme of ['light', 'dark']) {
  test(`axe finds nothing, ${colorScheme}`, async () => {
    for (const width of [1280, 390]) {
      await onEach(Object.keys(files), async (page, name) => {
        // Through the protocol: a script element of a test's own would be against the page's policy.
        await page.evaluate(fs.readFileSync(axe, 'utf8'));
        const { violations } = await page.evaluate(() => axe.run(document, { resultTypes: ['violations'] }));
        const told = violations.map(({ id, nodes }) => `${id}: ${nodes[0].html.slice(0, 300)} ${nodes[0].failureSummary}`);
        assert.deepEqual(told, [], `${name} at ${width}`);
        const wide = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
        assert.ok(wide <= 0, `${name} is ${wide} pixels wider than ${width}`);
      }, { colorScheme, width });
    }
  });
}

test('the button turns dark to light and back', async () => {
  await onEach(['overview'], async (page) => {
    const ground = () => page.evaluate(() => getComputedStyle(document.body).backgroundColor);
    const lines = () => page.evaluate(() => graphs[0].graph.getColors().join());
    const [dark, bright] = [await ground(), await lines()];
    assert.match(bright, /^rgb\(/);
    await page.getByRole('button', { name: 'Dark or light' }).click();
    assert.notEqual(await ground(), dark);
    assert.notEqual(await lines(), bright);
    await page.getByRole('button', { name: 'Dark or light' }).click();
    assert.equal(await ground(), dark);
  }, { colorScheme: 'dark' });
});

/** The texts of the rows of a table below `scope`, by the name that a row begins with. */
function rowsOf(scope, caption) {
  return scope.evaluate((element, words) => {
    const table = [...element.querySelectorAll('table')].find((each) =>
      each.caption?.textContent.includes(words));
    return Object.fromEntries([...table.tBodies[0].rows].map((row) =>
      [row.cells[0].textContent.trim(), [...row.cells].slice(1).map((each) => each.textContent)]));
  }, caption);
}

test('which request settled exposure?', async () => {
  await onEach(['overview'], async (page) => {
    const rows = await rowsOf(page.locator('#timelines'), 'When exposure settled');
    for (const camera of [0, 1]) {
      assert.equal(rows[`camera ${camera}`][0], `request ${settledFrom[camera]}`);
    }
  });
});

test('where is R/G highest, how much does shading fall off, what share has label 3?', async () => {
  const records = show(data, names.image);
  await onEach(['one'], async (page) => {
    for (const article of await page.locator('article').all()) {
      const file = await article.locator('.file').first().textContent();
      const { record, values } = records.find((each) => each.file === file);
      if (record.endsWith('ParsedAWBStatsOutput')) {
        const { high, index } = reddest({ values });
        const summary = await article.locator('figure', { has: page.locator('figcaption', { hasText: /^R\/G$/ }) })
          .locator('.summary').textContent();
        const [, told, number] = summary.match(/^Highest (\S+) at column \d+, row \d+ \(number (\d+)\)/);
        assert.ok(isShown(told, high) && Number(number) === index, summary);
      } else if (record === 'LSC') {
        const rows = await rowsOf(article, 'Fall-off');
        for (const [name, member] of [['R', 'rGain'], ['Gr', 'grGain'], ['Gb', 'gbGain'], ['B', 'bGain']]) {
          const gains = values[member];
          const corner = (gains[0] + gains[16] + gains[204] + gains[220]) / 4;
          assert.ok(isShown(rows[name].at(-2), corner / gains[6 * 17 + 8]), name);
          assert.equal(rows[name].at(-1), `${Number((100 * (1 - gains[110] / corner)).toPrecision(3))} %`);
        }
      } else if (record === 'AWB_QsegImageData') {
        const labels = values.qsegStatsInfo;
        const rows = await rowsOf(article, 'Share of each label');
        const count = labels.filter((label) => label === 3).length;
        assert.equal(rows['Label 3']?.[1] ?? '0', String(count));
        if (count > 0) assert.equal(rows['Label 3'][0], `${((100 * count) / labels.length).toFixed(2)} %`);
      }
    }
  });
});

test('are camera 0 and camera 1 of one request consistent?', async () => {
  await onEach(['one'], async (page) => {
    const records = show(data, names.image);
    const lux = [0, 1].map((camera) => records.find((each) =>
      each.record === 'AE_AECData' && each.camera === camera && each.ev === 0).values.LuxIndex);
    const rows = await rowsOf(page.locator('.capture'), 'Cameras beside each other');
    assert.deepEqual(rows['Lux index'].slice(1, 3).map(Number), lux);
    assert.match(await page.locator('.verdict').first().textContent(), /^Cameras 0 and 1 are (not )?consistent/);
  });
  await onEach(['overview'], async (page) => {
    const rows = await rowsOf(page.locator('#timelines'), 'Requests whose cameras are not consistent');
    assert.match(rows['115'][0], /^lux index by 28.1 %/);
    assert.deepEqual(Object.keys(rows), ['107', '108', '115']);
  });
});

test('what changed between two captures, where and by how much?', async () => {
  await onEach(['both'], async (page) => {
    const lux = await rowsOf(page.locator('#comparison'), 'AE_AECData: ');
    assert.equal(lux.LuxIndex[1], '350');
    const shading = page.locator('#comparison figure', {
      has: page.locator('figcaption', { hasText: /^R gain, B - A/ }) }).first();
    assert.match(await shading.locator('.summary').textContent(), /^221 of 221 places differ, most by /);
    const redness = page.locator('#comparison figure', {
      has: page.locator('figcaption', { hasText: /^R\/G, B - A/ }) }).first();
    assert.match(await redness.locator('.summary').textContent(),
      /^1 of \d+ places differ, most by \S+ at column \d+, row \d+ \(number 40\)/);
    const labels = page.locator('#comparison figure', {
      has: page.locator('figcaption', { hasText: /^Changed labels/ }) }).first();
    assert.match(await labels.locator('.summary').textContent(), /^1 of 307200 labels changed/);
    const key = await rowsOf(page.locator('#comparison'), 'Labels and their colours');
    assert.equal(key['Label 9'][2], '1');
  });
});

test('which file is damaged?', async () => {
  await onEach(['overview'], async (page) => {
    const rows = await page.locator('#findings tbody tr').evaluateAll((all) => all.map((row) => row.innerText));
    const row = rows.find((each) => each.includes(names.broken.file));
    assert.match(row, /IMG_BROKEN.*error: 900 bytes instead of 1784/s);
  });
});

test('nothing in names and files is markup', async () => {
  await onEach(['hostile', 'overview'], async (page) => {
    const text = await page.evaluate(() => document.body.textContent);
    assert.ok(text.includes(`IMG_<svg onload=alert(1)><script>"'&\\x1b`));
    assert.equal(await page.evaluate(() => document.querySelectorAll('[onerror], [onload], main b').length), 0);
    const own = await page.evaluate(() => [...document.scripts].filter((script) => script.type === '').length);
    assert.equal(own, 2);
  });
});
