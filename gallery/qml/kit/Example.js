// SPDX-FileCopyrightText: 2026 The Ombrel developers
// SPDX-License-Identifier: MIT

.pragma library

// Examples of the reference with the values of a demo written in.

// What every item starts with: not worth a line.
var ordinary = { opacity: 1, scale: 1, rotation: 0, visible: true, enabled: true, antialiasing: false };

// The text that makes `value` in QML; undefined for what a text cannot make.
function literal(value) {
    if (typeof value === "number" || typeof value === "boolean")
        return String(value);
    if (typeof value === "string")
        return JSON.stringify(value);
    if (value === null || value === undefined || typeof value !== "object")
        return undefined;
    if (value.code !== undefined)
        return value.code;
    if (value.x !== undefined && value.y !== undefined && value.width === undefined)
        return "Qt.point(" + value.x + ", " + value.y + ")";
    const text = String(value);
    // A colour or a url is an object of the engine's.
    if (text.startsWith("#") || value.r !== undefined || value.length === undefined)
        return text.startsWith("#") || text.includes(":") ? JSON.stringify(text) : undefined;
    return "[" + Array.from(value).map(part => JSON.stringify(part)).join(", ") + "]";
}

function depthOf(line) {
    const bare = line.replace(/"(?:[^"\\]|\\.)*"/g, "").replace(/\/\/.*$/, "");
    return (bare.match(/[{[(]/g) || []).length - (bare.match(/[}\])]/g) || []).length;
}

// The number of the line behind what begins at `start`: one line, or all to the closing bracket.
function endOf(lines, start) {
    let depth = 0;
    let at = start;
    do
        depth += depthOf(lines[at++]);
    while (depth > 0 && at < lines.length);
    return at;
}

function withValues(source, type, values) {
    const lines = source.replace(/\n+$/, "").split("\n");
    const opens = new RegExp("^(\\s*)(?:[\\w.]+: )?" + type + " \\{(.*)$");
    const start = lines.findIndex(line => opens.test(line));
    if (start < 0)
        return source;
    const match = opens.exec(lines[start]);
    const indent = match[1] + "    ";
    // One on a line of its own is taken apart.
    if (match[2] !== "") {
        const inner = match[2].replace(/\s*\}\s*$/, "").trim();
        const parts = inner === "" ? [] : inner.split(/;\s*/);
        lines.splice(start, 1, lines[start].slice(0, lines[start].length - match[2].length),
                     ...parts.map(part => indent + part), match[1] + "}");
    }
    for (const name of Object.keys(values)) {
        const text = literal(values[name]);
        if (text === undefined)
            continue;
        const last = endOf(lines, start) - 1;
        let at = start + 1;
        while (at < last && !new RegExp("^\\s*(?:property \\w+ )?" + name + ":").test(lines[at]))
            at = endOf(lines, at);
        if (at < last) {
            const head = lines[at].slice(0, lines[at].indexOf(name + ":"));
            lines.splice(at, endOf(lines, at) - at, head + name + ": " + text);
        } else if (ordinary[name] !== values[name]) {
            const first = /^\s*id:/.test(lines[start + 1]) ? start + 2 : start + 1;
            lines.splice(first, 0, indent + name + ": " + text);
        }
    }
    return lines.join("\n") + "\n";
}
