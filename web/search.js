// Search where the library itself is not at hand: glyphwright/catalogue/search.cpp once more, over the
// catalogue as `glyphwright list --json` writes it. A test holds both equal.

const WHOLE_NAME = 1000, NAME_WORD = 100, KEYWORD = 84, START_OF_NAME_WORD = 64, START_OF_KEYWORD = 56;
const SECTION_WORD = 40, INSIDE_NAME_WORD = 36, START_OF_SECTION_WORD = 30, NEAR_NAME_WORD = 24;
const NEAR_KEYWORD = 18, MOST_DEDUCTED = 6, LONGEST_TEXT = 128;
const EMPTY = new Set('a an and for icon icons in of path symbol the to with'.split(' '));

// Upper and lower case of ASCII only, as the library has it.
export const lowered = (text) => text.replace(/[A-Z]/g, (c) => c.toLowerCase());

// A word begins at a capital after something else: "whoSeesYou" has three, "idCARD" two.
const splitWords = (text) => (text.match(/[A-Z]+[a-z0-9]*|[a-z0-9]+/g) ?? []).map(lowered);

const singular = (word) =>
  word.length > 3 && word.endsWith('s') && !word.endsWith('ss') ? word.slice(0, -1) : word;

function tellingWords(text) {
  const words = splitWords(text);
  const telling = words.filter((word) => !EMPTY.has(word));
  return (telling.length ? telling : words).map(singular);
}

// Letters put in, left out, changed or swapped with their neighbour.
function editDistance(a, b) {
  let beforeLast = [];
  let last = Array.from({ length: b.length + 1 }, (_, i) => i);
  for (let i = 1; i <= a.length; ++i) {
    const row = [i];
    for (let j = 1; j <= b.length; ++j) {
      row[j] = Math.min(last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] === b[j - 1] ? 0 : 1));
      if (i > 1 && j > 1 && a[i - 1] === b[j - 2] && a[i - 2] === b[j - 1]) {
        row[j] = Math.min(row[j], beforeLast[j - 2] + 1);
      }
    }
    [beforeLast, last] = [last, row];
  }
  return last[b.length];
}

function isNear(asked, word) {
  if (asked.length < 4) return false;
  const allowed = asked.length < 7 ? 1 : 2;
  return Math.abs(asked.length - word.length) <= allowed && editDistance(asked, word) <= allowed;
}

const less = (worth, deducted) => worth - 2 * Math.min(deducted, MOST_DEDUCTED);

function fit(asked, word, [same, start, inside]) {
  if (word === asked) return same;
  if (word.startsWith(asked)) return start;
  return asked.length > 3 && word.includes(asked) ? inside : 0;
}

function worthOf(asked, entry) {
  let best = 0;
  for (const name of entry.names) {
    for (const word of name) {
      const worth = fit(asked, word, [NAME_WORD, START_OF_NAME_WORD, INSIDE_NAME_WORD]);
      best = Math.max(best, worth === NAME_WORD ? less(worth, name.length - 1) : worth);
    }
  }
  entry.keywords.forEach((word, i) => {
    const worth = fit(asked, word, [KEYWORD, START_OF_KEYWORD, 0]);
    if (worth > 0) best = Math.max(best, less(worth, i));
  });
  for (const word of entry.sections) {
    best = Math.max(best, fit(asked, word, [SECTION_WORD, START_OF_SECTION_WORD, 0]));
  }
  return best;
}

function nearWorthOf(asked, entry) {
  let best = 0;
  for (const name of entry.names) {
    if (name.some((word) => isNear(asked, word))) {
      best = Math.max(best, less(NEAR_NAME_WORD, name.length - 1));
    }
  }
  entry.keywords.forEach((word, i) => {
    if (isNear(asked, word)) best = Math.max(best, less(NEAR_KEYWORD, i));
  });
  return best;
}

function entryOf(name, keywords, catalogue) {
  const entry = { name, names: [], wholeNames: [], keywords: keywords.map(singular), sections: [] };
  const addName = (text) => {
    entry.names.push(tellingWords(text));
    entry.wholeNames.push(entry.names.at(-1).join(''), lowered(text));
  };
  const dot = name.lastIndexOf('.');
  if (dot >= 0) {
    addName(name.slice(dot + 1));
    entry.sections = tellingWords(name.slice(0, dot));
    return entry;
  }
  addName(name);
  for (const enumeration of catalogue.enumerations) {
    const cases = enumeration.cases.filter((each) => each.rawValue === name);
    for (const each of cases) addName(each.name);
    if (cases.length) {
      entry.sections.push(...tellingWords(enumeration.name), ...tellingWords(enumeration.title));
    }
  }
  for (const each of catalogue.icons) if (each.rawValue === name) addName(each.name);
  return entry;
}

// Makes the function that searches: words and a limit to an array of { name, guess }, best first.
export function makeSearch(catalogue) {
  const entries = Object.entries(catalogue.keywords).map(([name, words]) => entryOf(name, words, catalogue));
  const byName = new Map(entries.map(({ name }) => [name, name]));
  for (const [enumeration, cases] of [...catalogue.enumerations.map((each) => [each.name, each.cases]),
                                      ['Icons', catalogue.icons]]) {
    for (const each of cases) {
      if (catalogue.keywords[each.rawValue]) byName.set(`${enumeration}.${each.name}`, each.rawValue);
    }
  }

  const questionOf = (text) => {
    text = text.slice(0, LONGEST_TEXT);
    const name = text.replace(/[ \t]/g, '').replaceAll('::', '.');
    const rest = name.replace(/;$/, '').replace(/\(\)$/, '').replace(/\.path$/, '')
      .replace(/^glyphwright\./, '').replace(/^UIBezierPath\./, '');
    const digits = /^#?(\d{1,3})$/.exec(rest)?.[1];
    const named = catalogue.types[Number(digits ?? NaN)]?.method ?? byName.get(rest) ?? '';
    return { named, onlyName: named !== '' && /[.#(]/.test(name), words: tellingWords(text) };
  };

  return function search(text, limit = 10) {
    const { named, onlyName, words } = questionOf(text);
    if (limit <= 0) return [];
    if (onlyName) return [{ name: named, guess: false }];
    if (words.length === 0) return [];
    let found = entries.map((entry) => ({ entry, guess: false, words: 0, worth: 0 }));
    for (const word of words) {
      const worths = entries.map((entry) => worthOf(word, entry));
      const guess = worths.every((worth) => worth === 0);
      found.forEach((each, i) => {
        const worth = guess ? nearWorthOf(word, each.entry) : worths[i];
        if (worth === 0) return;
        each.worth += worth;
        each.words += 1;
        each.guess ||= guess;
      });
    }
    const together = words.join('');
    for (const each of found) {
      const isNamed = each.entry.name === named;
      const whole = isNamed || each.entry.wholeNames.includes(together);
      if (!whole && (words.length === 1 || !each.entry.keywords.includes(together))) continue;
      each.guess = false;
      each.words = words.length;
      each.worth = isNamed ? 2 * WHOLE_NAME : whole ? WHOLE_NAME + each.worth
        : Math.max(each.worth, KEYWORD * words.length);
    }
    const most = Math.max(Math.floor((words.length + 1) / 2), ...found.map((each) => each.words));
    found = found.filter((each) => each.words >= most);
    found.sort((a, b) => b.worth - a.worth || a.entry.names[0].length - b.entry.names[0].length);
    return found.slice(0, limit).map(({ entry, guess }) => ({ name: entry.name, guess }));
  };
}

// Words of the catalogue that are spelled least unlike what was asked for and found nothing.
export function suggestWords(catalogue, text, count = 5) {
  const asked = lowered(text.trim()).slice(0, 24);
  const words = [...new Set(Object.values(catalogue.keywords).flat())];
  const away = new Map(words.map((word) =>
    [word, editDistance(asked, word) / Math.max(asked.length, word.length)]));
  return words.sort((a, b) => away.get(a) - away.get(b)).slice(0, count);
}
