// Random choices, the same ones for the same seed.
export function makeRandom(seed, usual = "") {
  let state = seed;
  const next = () => {
    state = (state + 0x6d2b79f5) | 0;
    let t = Math.imul(state ^ (state >>> 15), 1 | state);
    t = (t + Math.imul(t ^ (t >>> 7), 61 | t)) ^ t;
    return ((t ^ (t >>> 14)) >>> 0) / 4294967296;
  };
  const upTo = (n) => Math.floor(next() * n);
  const from = (a, b) => a + upTo(b - a + 1);
  const pick = (list) => list[upTo(list.length)];
  const chance = (p) => next() < p;
  const some = (n, make) => Array.from({ length: n }, (_, i) => make(i));
  const text = (n, letters = usual) => some(n, () => pick(letters)).join("");
  const mixed = (list) => list.map((one) => [next(), one]).sort((a, b) => a[0] - b[0]).map((pair) => pair[1]);
  return { upTo, from, pick, chance, some, text, mixed };
}
