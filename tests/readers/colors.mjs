// SPDX-License-Identifier: MPL-2.0
// Reads a file of colours with the npm package anypalette, and prints them as JSON; or reads such
// JSON and writes a file.
//
//     node colors.mjs read FILE
//     node colors.mjs write FILE <JSON

import AnyPalette from "anypalette";
import fs from "node:fs";
import path from "node:path";

const formats = {
    ".gpl": AnyPalette.formats.GIMP_PALETTE,
    ".soc": AnyPalette.formats.STAROFFICE_PALETTE,
    ".ase": AnyPalette.formats.ADOBE_SWATCH_EXCHANGE_PALETTE,
};

function formatOf(file) {
    const format = formats[path.extname(file)];
    if (!format) throw new Error(`${file}: no such format`);
    return format;
}

function read(file) {
    AnyPalette.loadPalette({ filePath: file }, (error, palette, format) => {
        if (error) throw error;
        if (format !== formatOf(file)) throw new Error(`${file}: read as ${format.name}`);
        const colors = Array.from(palette, ({ red, green, blue, name }) => ({
            color: [red, green, blue].map((part) => Math.round(part * 255)),
            name: name ?? null,
        }));
        console.log(JSON.stringify({ name: palette.name ?? null, colors }));
    });
}

function write(file) {
    const given = JSON.parse(fs.readFileSync(0, "utf8"));
    const palette = new AnyPalette.Palette();
    palette.name = given.name;
    for (const { color, name } of given.colors) {
        const [red, green, blue] = color.map((part) => part / 255);
        palette.push(new AnyPalette.Color({ red, green, blue, name }));
    }
    const content = AnyPalette.writePalette(palette, formatOf(file));
    fs.writeFileSync(file, typeof content === "string" ? content : Buffer.from(content));
}

const [what, file] = process.argv.slice(2);
({ read, write })[what](file);
