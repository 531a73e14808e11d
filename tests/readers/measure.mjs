// SPDX-License-Identifier: MPL-2.0
// Measures how long mdb-reader takes to open a database and read all of a table, in milliseconds
// inside its process, and prints the median and the number of rows as JSON.
//
//     node measure.mjs FILE TABLE RUNS

import { readFileSync } from "node:fs";
import MDBReader from "mdb-reader";

const [file, table, runs] = process.argv.slice(2);
const times = [];
let rows = 0;
for (let run = 0; run < Number(runs); ++run) {
  const start = performance.now();
  rows = new MDBReader(readFileSync(file)).getTable(table).getData().length;
  times.push(performance.now() - start);
}
times.sort((a, b) => a - b);
process.stdout.write(JSON.stringify({ ms: times[Math.floor(times.length / 2)], fills: rows }));
