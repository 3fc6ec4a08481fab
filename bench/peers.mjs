// Has a peer read a whole file into typed memory and write it out again with every cell in quotes, on one thread where
// it obeys. Prints the milliseconds of processor time, those of all threads together, as JSON.
//   node peers.mjs polars|duckdb FILE OUT COLUMNS.json WARMUP    in the folder where the packages are; WARMUP is a
//                                                                short file that is read and written first

import { readFileSync } from "node:fs";
import { createRequire } from "node:module";

const [peer, file, out, columnsFile, warmUp] = process.argv.slice(2);
const columns = Object.entries(JSON.parse(readFileSync(columnsFile, "utf8")));
const require = createRequire(`${process.cwd()}/`);

async function polars() {
  process.env.POLARS_MAX_THREADS = "1";
  const pl = require("nodejs-polars");
  const types = { text: pl.Utf8, int: pl.Int32, real: pl.Float64 };
  const schema = Object.fromEntries(columns.map(([name, type]) => [name, types[type]]));
  return {
    read: (path) => pl.readCSV(path, { schema }),
    write: (frame) => frame.lazy().sinkCSV(out, { quoteStyle: "always" }).collectSync(),
  };
}

async function duckdb() {
  const { DuckDBInstance } = require("@duckdb/node-api");
  const connection = await (await DuckDBInstance.create(":memory:", { threads: "1" })).connect();
  const types = { text: "VARCHAR", int: "INTEGER", real: "DOUBLE" };
  const list = columns.map(([name, type]) => `'${name}': '${types[type]}'`);
  return {
    read: (path) =>
      connection.run(`CREATE OR REPLACE TABLE t AS SELECT * FROM read_csv('${path}', header = true, delim = ',',
        quote = '"', auto_detect = false, columns = {${list}})`),
    write: () => connection.run(`COPY t TO '${out}' (FORMAT csv, HEADER, FORCE_QUOTE *)`),
  };
}

async function time(work) {
  const start = process.cpuUsage();
  const result = await work();
  const { user, system } = process.cpuUsage(start);
  return [(user + system) / 1000, result];
}

const { read, write } = await { polars, duckdb }[peer]();
await write(await read(warmUp));
const [readTime, table] = await time(() => read(file));
const [writeTime] = await time(() => write(table));
console.log(JSON.stringify({ read: readTime, write: writeTime }));
