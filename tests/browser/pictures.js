// node pictures.js FOLDER: makes the pictures that the README shows, of a page about a short session.
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { launch, open } from './browser.js';
import { makeData, simrec } from './data.js';

const folder = path.resolve(process.argv[2] ?? '.');
const root = fs.mkdtempSync(path.join(os.tmpdir(), 'simrec-pictures-'));
const file = path.join(root, 'page.html');
const { image } = makeData(path.join(root, 'data'));
simrec(path.join(root, 'data'), 'report', image, '-o', file);
const browser = await launch();
const { page } = await open(browser, file, { width: 1000 });
const shot = (locator, name) => locator.screenshot({ path: path.join(folder, name) });
const article = page.locator('article').nth(1);
await article.locator('.map').nth(1).hover({ position: { x: 100, y: 150 } });
await page.waitForTimeout(500);
await shot(article, 'report-grid.png');
await shot(page.locator('article', { hasText: 'simulation_AWB_QsegImageData' }).first(), 'report-labels.png');
await browser.close();
fs.rmSync(root, { recursive: true });
