// SPDX-License-Identifier: MPL-2.0
// Prints the tables of a database as JSON: their columns and rows. Bytes are in base64.
//
//     node read.mjs FILE

import { readFileSync } from "node:fs";
import MDBReader from "mdb-reader";

function plain(value) {
  return value instanceof Uint8Array ? Buffer.from(value).toString("base64") : value;
}

function tableOf(reader, name) {
  const table = reader.getTable(name);
  const columns = table.getColumns().map(({ name, type, size, autoLong }) => ({ name, type, size, autoLong }));
  const rows = table.getData().map((row) => columns.map(({ name }) => plain(row[name])));
  return { name, columns, rowCount: table.rowCount, rows };
}

const reader = new MDBReader(readFileSync(process.argv[2]));
const systemTable = reader.getTable("MSysObjects");
const result = {
  tables: reader.getTableNames().map((name) => tableOf(reader, name)),
  objects: systemTable.getData({ columns: ["Id", "ParentId", "Name", "Type", "Flags"] }),
};
process.stdout.write(JSON.stringify(result));
