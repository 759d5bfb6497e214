// sums.mjs FOLDER jsonl|csv: loads each table of an export by its partitions, with the types that
// its schema tells, and prints counts, sums and extremes of each column and camera.
import { readdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';
import { DuckDBInstance } from '@duckdb/node-api';

const TYPES = { int64: 'BIGINT', uint64: 'UBIGINT', double: 'DOUBLE', text: 'VARCHAR', time: 'TIMESTAMPTZ' };
const [folder, format] = process.argv.slice(2);
const connection = await (await DuckDBInstance.create(':memory:')).connect();
await connection.run("SET TimeZone = 'UTC'");

const typeOf = (column) => TYPES[column.type.replace('[]', '')] + (column.type.endsWith('[]') ? '[]' : '');

function source(kind, columns) {
  const types = columns.map((column) => `'${column.name}': '${typeOf(column)}'`).join(', ');
  const files = join(folder, kind, columns.partitioned ? 'camera=*' : '', `*.${format}`);
  const options = `hive_partitioning = ${columns.partitioned}, hive_types_autocast = true`;
  return format === 'jsonl'
    ? `read_json('${files}', format = 'newline_delimited', columns = {${types}}, maximum_object_size = 67108864, ${options})`
    : `read_csv('${files}', header = true, quote = '"', escape = '"', columns = {${types}}, max_line_size = 67108864, ${options})`;
}

/// What is asked of a column, as texts.
function questions(column) {
  const name = `"${column.name}"`;
  const type = column.type.replace('[]', '');
  const list = column.type.endsWith('[]');
  if (type === 'text') return [`count(${name})`, `min(${name})`, `max(${name})`];
  if (type === 'time') return [`count(${name})`, `min(epoch_ms(${name}))`, `max(epoch_ms(${name}))`];
  const all = list ? `flatten(list(${name}))` : `list(${name})`;
  const numbers = `list_filter(${all}, x -> x IS NOT NULL)`;
  const finite = type === 'double' ? `list_filter(${numbers}, x -> isfinite(x))` : numbers;
  const sum = type === 'double' ? `list_sum(${finite})` : `list_sum(list_transform(${finite}, x -> x::HUGEINT))`;
  const odd = (what) => (type === 'double' ? `len(list_filter(${numbers}, x -> ${what}))` : '0');
  return [`count(${name})`, `len(${numbers})`, sum, `list_min(${finite})`, `list_max(${finite})`,
    odd('isnan(x)'), odd("x = 'inf'::DOUBLE"), odd("x = '-inf'::DOUBLE")];
}

const result = {};
for (const kind of readdirSync(folder).filter((name) => !name.startsWith('.')).sort()) {
  const { columns } = JSON.parse(readFileSync(join(folder, kind, '_schema.json'), 'utf8'));
  const inside = readdirSync(join(folder, kind));
  columns.partitioned = inside.some((name) => name.startsWith('camera='));
  if (!columns.partitioned && !inside.some((name) => name.endsWith(format))) continue;
  const asked = columns.filter((column) => column.name !== 'camera')
    .map((column) => `[${questions(column).map((question) => `(${question})::VARCHAR`)}]`);
  const reader = await connection.runAndReadAll(
    `SELECT camera::VARCHAR, count(*)::VARCHAR, ${asked.join(', ')} FROM ${source(kind, columns)} GROUP BY camera`);
  result[kind] = {};
  for (const [camera, count, ...answers] of reader.getRowsJson()) {
    const values = Object.fromEntries(columns.filter((column) => column.name !== 'camera')
      .map((column, i) => [column.name, answers[i]]));
    result[kind][camera ?? ''] = { rows: count, ...values };
  }
}
console.log(JSON.stringify(result));
