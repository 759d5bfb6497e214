// What a read-out must say of a record, worked out from `simrec show --json --lists` alone.

const ratio = (of, to) => (to > 0 ? of / to : NaN);

function regionOf(values, index) {
  const at = (name) => values[name][index];
  const green = ratio(at('GRorGSum') + at('GBSum'), at('GRorGCount') + at('GBCount'));
  const samples = at('RCount') + at('BCount') + at('GRorGCount') + at('GBCount');
  return {
    level: ratio(at('RSum') + at('BSum') + at('GRorGSum') + at('GBSum'), samples),
    'R/G': ratio(ratio(at('RSum'), at('RCount')), green),
    'B/G': ratio(ratio(at('BSum'), at('BCount')), green),
  };
}

/** The mean of the pixels that a place of the picture stands for; planes are 1920 x 1080. */
function lumaOf(values, index, columns) {
  const width = 1920;
  const height = 1080;
  const step = Math.ceil(width / columns);
  const left = (index % columns) * step;
  const top = Math.floor(index / columns) * step;
  let sum = 0;
  let count = 0;
  for (let y = top; y < Math.min(top + step, height); ++y) {
    for (let x = left; x < Math.min(left + step, width); ++x, ++count) {
      sum += parseInt(values.hex.substr(2 * (y * width + x), 2), 16);
    }
  }
  return Math.round(sum / count);
}

/** The number called `name` at a place of a picture. */
export function expected(record, name, index, columns) {
  const { values } = record;
  if (name === 'label') return values.qsegStatsInfo[index];
  if (Array.isArray(values[name])) return values[name][index];
  if (name === 'Y') return lumaOf(values, index, columns);
  return regionOf(values, index)[name];
}

/** Whether a read-out's text, of four significant digits or exact, stands for the number. */
export function isShown(text, number) {
  if (Number(text) === number || text === String(number)) return true;
  return Math.abs(Number(text) - number) <= 5.1e-4 * Math.abs(number);
}

/** Where R/G is highest, and how high. */
export function reddest({ values }) {
  const all = values.RSum.map((_, index) => regionOf(values, index)['R/G']);
  const high = Math.max(...all);
  return { high, index: all.indexOf(high) };
}
