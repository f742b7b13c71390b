// Audits web pages in Chromium, on a desk and on a phone: node audit.cjs <folder of node_modules> <page>...
// Tells a line for each page and width: how many findings, and which.
const [modules, ...pages] = process.argv.slice(2);
const puppeteer = require(`${modules}/puppeteer-core`);
const axe = require.resolve(`${modules}/axe-core/axe.min.js`);

const tags = ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22a", "wcag22aa", "best-practice"];

async function audit(browser, page, width) {
  const tab = await browser.newPage();
  await tab.setViewport({ width, height: 900 });
  await tab.goto(`file://${page}`);
  await tab.addScriptTag({ path: axe });
  const { violations } = await tab.evaluate(run => axe.run(document, { runOnly: run }), tags);
  const found = violations.map(v => `${v.id} (${v.nodes.length}) ${v.nodes[0].html.slice(0, 120)}`);
  console.log(`${page.split("/").pop()} at ${width}: ${violations.length} findings ${found.join("; ")}`.trim());
  await tab.close();
}

(async () => {
  const browser = await puppeteer.launch({ executablePath: process.env.TVX_CHROMIUM, args: ["--no-sandbox", "--disable-gpu"] });
  try {
    for (const page of pages) for (const width of [1280, 390]) await audit(browser, page, width);
  } finally {
    await browser.close();
  }
})();
