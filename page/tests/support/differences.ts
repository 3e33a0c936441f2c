/** The reverse of what pages do with the differences in their texts: one word after the other. */
const MODULUS = 2_000_000_000 - 1;

export function toDifferences(text: string): string {
  const before = new Array<number>(16).fill(0);
  const line = (words: string): string => {
    let column = -1;
    return words.replace(/[^ <>]+/g, (word) => {
      column = (column + 1) % before.length;
      if (!/^(0|-?[1-9][0-9]{0,8})$/.test(word)) return word;
      const difference = Number(word) - before[column]!;
      before[column] = Number(word);
      const around = Math.abs(difference) < 1e9 ? 0 : Math.sign(difference) * MODULUS;
      return String(difference - around);
    });
  };
  return text.split('\n').map(line).join('\n');
}
