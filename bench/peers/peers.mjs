// SPDX-License-Identifier: MIT
// usage: node peers.mjs SCHEMA, in a folder that has ajv and zod. Answers what peers.cpp answers, for the peers of
// TypeScript users.
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { createInterface } from "node:readline";

const load = createRequire(process.cwd() + "/");
const Ajv = load("ajv").default;
const { z } = load("zod");

const ajv = new Ajv({ allErrors: true, coerceTypes: "array", useDefaults: true });
const validate = ajv.compile(JSON.parse(readFileSync(process.argv[2], "utf-8")));

function withAjv(text) {
  const value = JSON.parse(text);
  return validate(value) ? { value } : { refusal: ajv.errorsText(validate.errors, { dataVar: "", separator: "\n" }) };
}

/** The search tool; what the two peers declare otherwise is given. */
function searchSchema({ whole, number, truth, kinds, mode }) {
  return z.strictObject({
    action: z.enum(["find", "list", "outline", "stats"]).default("find"),
    query: z.string().optional(),
    path: z.string().optional(),
    limit: whole(1, 100).default(20),
    offset: whole(0).default(0),
    threshold: number(0, 1).default(0.5),
    regex: truth().default(false),
    kinds: kinds(z.array(z.enum(["function", "class", "module", "variable"]))).optional(),
    mode: mode(z.enum(["exact", "fuzzy", "semantic"])).default("exact"),
    include_private: truth().default(false),
    languages: z.array(z.string()).optional(),
    context_lines: whole(0, 50).default(2),
    sort: z.enum(["relevance", "path", "recent"]).default("relevance"),
  }).refine(({ action, query }) => action !== "find" || query !== undefined, {
    path: ["query"],
    error: "find needs a query",
  });
}

/** As its own means of coercion declare it. */
const coerced = searchSchema({
  whole: (least, most = Infinity) => z.coerce.number().int().min(least).max(most),
  number: (least, most) => z.coerce.number().min(least).max(most),
  truth: () => z.union([z.boolean(), z.stringbool()]),
  kinds: (list) => list,
  mode: (choice) => choice,
});

/** With what B needs beyond them written out by hand: a clamp, a list made of a text, lower case. */
const clamp = (schema, least, most) => schema.transform((number) => Math.min(Math.max(number, least), most));
const repaired = searchSchema({
  whole: (least, most = Infinity) => clamp(z.coerce.number().int(), least, most),
  number: (least, most) => clamp(z.coerce.number(), least, most),
  truth: () => z.union([z.boolean(), z.stringbool()]),
  kinds: (list) => z.preprocess((given) => (typeof given === "string" ? given.split(",") : given), list),
  mode: (choice) => z.preprocess((given) => (typeof given === "string" ? given.toLowerCase() : given), choice),
});

function withZod(schema, text) {
  const parsed = schema.safeParse(JSON.parse(text));
  return parsed.success ? { value: parsed.data } : { refusal: z.prettifyError(parsed.error) };
}

const peers = {
  ajv: withAjv,
  zod: (text) => withZod(coerced, text),
  zod_by_hand: (text) => withZod(repaired, text),
  json_parse: (text) => ({ value: JSON.parse(text) }),
};

let sink = 0;

/** The nanoseconds of processor time that one turn takes, over about `milliseconds` of it. */
function nanoseconds(act, text, milliseconds) {
  let turns = 0;
  let used = 0;
  const before = process.cpuUsage();
  while (used < milliseconds * 1000) {
    for (let turn = 0; turn < 200; ++turn) {
      const answer = act(text);
      sink += answer.refusal === undefined ? Object.keys(answer.value).length : answer.refusal.length;
    }
    turns += 200;
    const { user, system } = process.cpuUsage(before);
    used = user + system;
  }
  return (used * 1000) / turns;
}

for await (const line of createInterface({ input: process.stdin })) {
  const [peer, milliseconds, text] = line.split("\t");
  const act = peers[peer];
  console.log(milliseconds === "0" ? JSON.stringify(act(text)) : nanoseconds(act, text, Number(milliseconds)));
}
