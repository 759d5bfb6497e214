// Chromium, and pages in it that keep account of what they say and ask for.
import { chromium } from 'playwright-core';

const options = ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync'];

export function launch() {
  return chromium.launch({ executablePath: '/usr/bin/chromium', headless: true, args: options });
}

/** A page of a file. `said` has what stood on the console, `asked` what was asked of others. */
export async function open(browser, file, { width = 1280, colorScheme = 'light', hasTouch = false } = {}) {
  // A Content-Security-Policy holds for what tests put into the page, too: it is told of separately.
  const context = await browser.newContext({ viewport: { width, height: 900 }, colorScheme, hasTouch });
  const page = await context.newPage();
  const said = [];
  const asked = [];
  page.on('console', (message) => {
    if (['error', 'warning'].includes(message.type())) said.push(message.text());
  });
  page.on('pageerror', (error) => said.push(String(error)));
  page.on('dialog', (dialog) => {
    said.push(`dialog: ${dialog.message()}`);
    dialog.dismiss();
  });
  page.on('request', (request) => {
    const url = request.url();
    if (url !== `file://${file}` && !url.startsWith('data:')) asked.push(url);
  });
  await page.goto(`file://${file}`);
  return { page, said, asked, close: () => context.close() };
}
