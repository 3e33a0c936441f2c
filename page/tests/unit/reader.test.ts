import assert from 'node:assert/strict';
import { test } from 'node:test';
import { detectEncoding } from '../../src/javaview/encoding';
import type { Geometry } from '../../src/javaview/model';
import { Reader, readDocument, type ReadResult } from '../../src/javaview/reader';
import { example, exampleNames } from '../support/examples';

const bytes = (text: string): Uint8Array => new TextEncoder().encode(text);

const model = (inner: string): ReadResult =>
  readDocument(
    bytes(`<jvx-model><geometries><geometry>${inner}</geometry></geometries></jvx-model>`),
  );

const only = (result: ReadResult) => {
  assert.equal(result.geometries.length, 1);
  return result.geometries.at(0);
};

const count = (text: string, pattern: RegExp): number => [...text.matchAll(pattern)].length;

test('neighbours are passed over, whatever they say', () => {
  const list = '<faces><f>0 1 2</f></faces><neighbours num="7"><nb>1 x 3</nb><nb/></neighbours>';
  const colors = '<colors><c>1 2 3</c></colors>';
  const { geometries } = readDocument(
    new TextEncoder().encode(
      `<jvx-model><geometries><geometry><faceSet>${list}${colors}</faceSet></geometry></geometries></jvx-model>`,
    ),
  );
  const { faces } = geometries.at(0);
  assert.deepEqual([...faces!.faces.values], [0, 1, 2]);
  assert.deepEqual([...faces!.colors], [1, 2, 3]);
});

test('coordinates come as the file has them', () => {
  const { points } = only(
    model(
      '<pointSet dim="3"><points num="2"><p>1 -2.5 1e-05</p><p>nan inf -inf</p></points></pointSet>',
    ),
  );
  assert.deepEqual([...points.coordinates], [1, -2.5, 1e-5, NaN, Infinity, -Infinity]);
});

test('points of two dimensions lie at z 0, whatever follows', () => {
  const geometry = only(
    model('<pointSet dim="2"><points><p>1 2</p><p>3 4 5</p><p>6</p></points></pointSet>'),
  );
  assert.equal(geometry.dimension, 2);
  assert.deepEqual([...geometry.points.coordinates], [1, 2, 0, 3, 4, 0, 6, NaN, 0]);
});

test('num is only a hint', () => {
  for (const num of ['num="-3"', 'num="999999999999"', 'num="0"', 'num="x"', '']) {
    const { points } = only(
      model(`<pointSet><points ${num}><p>1 2 3</p><p>4 5 6</p></points></pointSet>`),
    );
    assert.equal(points.coordinates.length, 6, num);
  }
});

test('an absent attribute means show for point, line, face and edge, hide for colours', () => {
  const { points, lines, faces } = only(model('<pointSet/><lineSet/><faceSet/>'));
  assert.ok(points.visible && lines?.visible && faces?.visible && faces.edgesVisible);
  assert.ok(!points.showColors && !lines.showColors && !faces.showColors && !lines.arrows);
});

test('hide is read for each set', () => {
  const { points, lines, faces } = only(
    model('<pointSet point="hide"/><lineSet line="hide"/><faceSet face="hide" edge="hide"/>'),
  );
  assert.ok(!points.visible && !lines?.visible && !faces?.visible && !faces?.edgesVisible);
});

test('colours of a vector field belong to that field only', () => {
  const geometry = only(
    model(
      '<pointSet dim="3"><points><p>0 0 0</p></points></pointSet>' +
        '<vectorField color="show"><vectors><v>1 0 0</v><length>0.5</length></vectors>' +
        '<colors num="1"><c>1 2 3</c></colors></vectorField>',
    ),
  );
  assert.equal(geometry.points.colors.length, 0);
  assert.deepEqual([...geometry.fields[0]!.colors], [1, 2, 3]);
  assert.equal(geometry.fields[0]!.length, 0.5);
});

test('lines and faces of any length; what is no number of a point is -1', () => {
  const { lines, faces } = only(
    model(
      '<lineSet><lines><l>0 1 2</l><l/><l>-4 1.5 x</l></lines></lineSet><faceSet><faces><f>0 1 2 3 4</f></faces></faceSet>',
    ),
  );
  assert.deepEqual([...lines!.lines.offsets], [0, 3, 3, 6]);
  assert.deepEqual([...lines!.lines.values], [0, 1, 2, -1, -1, -1]);
  assert.deepEqual([...faces!.faces.values], [0, 1, 2, 3, 4]);
});

test('more colours than lines are kept apart from what follows', () => {
  const { lines } = only(
    model(
      '<lineSet color="show"><lines num="1"><l>0 1</l></lines><colors num="1"><c>1 2 3</c><c>300 -5 6.4</c></colors></lineSet>',
    ),
  );
  assert.deepEqual([...lines!.colors], [1, 2, 3, 255, 0, 6]);
});

test('names of points, with references, beside points without', () => {
  const { points } = only(
    model(
      '<pointSet dim="2"><points num="3"><p>0 0</p><p name="a &lt;b&gt; &#x3b1;">1 1</p><p>2 2</p>' +
        '<labelAtt visible="show" horAlign="center" verAlign="top" style="bold" name="serif">' +
        '<color>9 8 7</color><size>14</size></labelAtt></points></pointSet>',
    ),
  );
  assert.deepEqual([...points.names], [[1, 'a <b> α']]);
  assert.equal(points.coordinates.length, 9);
  assert.deepEqual(points.font, {
    family: 'serif',
    size: 14,
    bold: true,
    italic: false,
    color: [9, 8, 7],
    horizontal: 'center',
    vertical: 'top',
  });
});

test('what other programs write is read past: comments, CDATA, instructions, unknown elements', () => {
  const text =
    '<?xml version="1.0"?><!-- <jvx-model> --><!DOCTYPE jvx-model [<!ELEMENT p (#PCDATA)> <!-- ]> -->' +
    '<!ENTITY e "<p>">]><jvx-model><title><![CDATA[a < b]]></title><?pi > ?><geometries><geometry name="g">' +
    '<odd><pointSet><points><p>9 9 9</p></points></pointSet></odd><pointSet dim="3"><!-- two --><points>' +
    '\n <p> 1 2 3 </p> <!-- c --> <p tag="x">4 5<!-- in between --> 6</p><p><![CDATA[7 8 9]]></p>\n</points>' +
    '</pointSet></geometry></geometries></jvx-model>';
  const result = readDocument(bytes(text));
  assert.equal(result.title, 'a < b');
  const geometry = only(result);
  assert.equal(geometry.name, 'g');
  const { coordinates } = geometry.points;
  assert.deepEqual([...coordinates.subarray(0, 3)], [1, 2, 3]);
  assert.deepEqual([...coordinates.subarray(6)], [7, 8, 9]);
  assert.equal(coordinates.length, 9);
});

test('pieces of any size give the same document', () => {
  const whole = example('annotations3d.jvx');
  const plain = (read: ReadResult): unknown => ({ ...read, geometries: [...read.geometries] });
  const expected = plain(readDocument(whole));
  for (const size of [1, 2, 3, 7, 64, 1000]) {
    const reader = new Reader();
    for (let i = 0; i < whole.length; i += size) reader.feed(whole.slice(i, i + size));
    assert.deepEqual(plain(reader.finish()), expected, `pieces of ${size}`);
  }
});

test('a piece may be overwritten once it is read', () => {
  const prologEnd = Buffer.from(example('annotations3d.jvx')).indexOf('<jvx-model');
  const whole = example('annotations3d.jvx').subarray(prologEnd);
  for (const size of [5, 1000]) {
    const reader = new Reader();
    const room = new Uint8Array(size);
    for (let i = 0; i < whole.length; i += size) {
      const piece = whole.subarray(i, i + size);
      room.set(piece);
      reader.feed(room.subarray(0, piece.length));
    }
    const names = (result: ReadResult): string[] =>
      [...result.geometries].flatMap(({ points }) => [...points.names.values()]);
    assert.deepEqual(names(reader.finish()), names(readDocument(whole)), `pieces of ${size}`);
  }
});

test('encodings by mark and by declaration', () => {
  const text = (encoding: string): string =>
    `<?xml version="1.0" encoding="${encoding}"?><jvx-model><title>größe</title></jvx-model>`;
  const wide = text('UTF-16');
  const utf16 = new Uint8Array(2 + 2 * wide.length);
  utf16.set([0xff, 0xfe]);
  for (let i = 0; i < wide.length; i++) utf16[2 + 2 * i] = wide.charCodeAt(i);
  const latin = Uint8Array.from(text('ISO-8859-1'), (c) => c.charCodeAt(0));
  const marked = bytes(`\ufeff${text('UTF-8')}`);
  const nonsense = bytes(text('x-nobody-knows'));
  for (const input of [utf16, latin, marked, nonsense]) {
    assert.equal(readDocument(input).title, 'größe');
  }
});

test('a declaration of wide letters counts for nothing in a text that has none', () => {
  for (const encoding of ['utf-16', 'UTF-16LE', 'ISO-10646-UCS-2', 'Unicode', 'UTF-32']) {
    const text = `<?xml version="1.0" encoding="${encoding}"?><jvx-model><title>größe</title></jvx-model>`;
    assert.equal(readDocument(bytes(text)).title, 'größe', encoding);
  }
});

test('an encoding of single letters is taken at its word, whatever number it has', () => {
  for (const encoding of ['ISO-8859-16', 'windows-1252', 'x-cp32']) {
    const head = bytes(`<?xml version="1.0" encoding="${encoding}"?>`);
    assert.equal(detectEncoding(head), encoding);
  }
});

test('an instruction in the document type may hold any letters', () => {
  const text =
    '<!DOCTYPE jvx-model [<?mine don\'t ]> ?><!ENTITY e "x">]><jvx-model><title>here</title></jvx-model>';
  assert.equal(readDocument(bytes(text)).title, 'here');
});

test('a text that is cut off keeps what has come', () => {
  const whole = example('surface_smallest.jvx');
  const cut = new TextDecoder().decode(whole).indexOf('<p>1 1 1</p>');
  const result = readDocument(whole.slice(0, cut));
  assert.equal(result.whole, false);
  assert.equal(only(result).points.coordinates.length, 9);
});

test('what is no plot is refused', () => {
  assert.throws(() => readDocument(bytes('<html><body/></html>')), /"html"/);
  assert.throws(() => readDocument(bytes('hello')), /no XML/);
  assert.throws(() => readDocument(new Uint8Array(0)), /no XML/);
});

test('hostile texts end in an error, not in a hang', () => {
  const deep = bytes('<a>'.repeat(100_000));
  assert.throws(() => readDocument(deep), /nested too deep/);
  const reader = new Reader();
  assert.throws(() => {
    for (let i = 0; i < 2000; i++)
      reader.feed(bytes(`${i === 0 ? '<jvx-model>' : ''}${'x'.repeat(65536)}`));
  }, /too long/);
  const tag = new Reader();
  assert.throws(() => {
    for (let i = 0; i < 100; i++)
      tag.feed(bytes(`${i === 0 ? '<jvx-model a="' : ''}${'x'.repeat(65536)}`));
  }, /tag is too long/);
});

test('a display is read in full', () => {
  const [display] = readDocument(example('axes_frame_3d.jvd')).displays;
  assert.ok(display?.axes);
  assert.equal(display.axes.type, 'bndbox');
  assert.equal(display.axes.rulers.length, 3);
  assert.deepEqual(
    display.axes.rulers.map(({ min, max }) => [min, max]),
    [
      [100, 200],
      [100, 300],
      [-0.001, 0.001],
    ],
  );
  assert.deepEqual(display.axes.rulers[0]!.color, [0, 100, 0]);
  assert.deepEqual(display.boxRatio, [1, 0.5, 33333.3]);
  assert.deepEqual(display.clip[2], [-0.0012, 0.0012]);
  assert.equal(display.cameras[0]?.fieldOfView, 0.174977);
  assert.equal(display.lights, undefined);
  assert.deepEqual(display.background, [255, 255, 255]);
});

test('the camera that is selected comes first, one without an opening has the usual one', () => {
  const camera = (projection: string, more = ''): string =>
    `<camera projection="${projection}"><position>1 2 3</position>${more}</camera>`;
  const cameras =
    camera('Perspective') + camera('X-Y') + camera('Perspective', '<fieldOfView>0</fieldOfView>');
  const read = (select: string): [string, number][] =>
    readDocument(
      bytes(
        `<jv-disp><displays><display><cameras ${select}>${cameras}</cameras></display></displays></jv-disp>`,
      ),
    ).displays[0]!.cameras.map(({ projection, fieldOfView }) => [projection, fieldOfView]);
  const inOrder = [
    ['Perspective', 0.175],
    ['X-Y', 0],
    ['Perspective', 0],
  ];
  assert.deepEqual(read(''), inOrder);
  assert.deepEqual(read('select="Nothing"'), inOrder);
  assert.deepEqual(read('select="X-Y"'), [inOrder[1], inOrder[0], inOrder[2]]);
});

test('lights and planes of a grid are read', () => {
  const [lit] = readDocument(example('lights_automatic.jvd')).displays;
  assert.equal(lit?.lights?.length, 7);
  assert.deepEqual(
    lit.lights.map((light) => light.intensity),
    [0.125, 0.4, 0.5, 0.1, 0.125, 0.1, 0.125],
  );
  const [grid] = readDocument(example('axes_origin_2d_grid.jvd')).displays;
  assert.deepEqual(grid?.axes?.gridPlanes, [true, false, true]);
});

test('counts of every example equal those of its text', () => {
  for (const name of exampleNames('.jvx')) {
    const whole = example(name);
    const text = new TextDecoder().decode(whole);
    const { geometries } = readDocument(whole);
    const sum = (of: (g: Geometry) => number): number =>
      [...geometries].reduce((total, geometry) => total + of(geometry), 0);
    assert.equal(geometries.length, count(text, /<geometry>/g), name);
    assert.equal(
      sum((g) => g.points.coordinates.length / 3),
      count(text, /<p[ >]/g),
      name,
    );
    assert.equal(
      sum((g) => g.points.names.size),
      count(text, /<p name=/g),
      name,
    );
    assert.equal(
      sum((g) => (g.lines?.lines.offsets.length ?? 1) - 1),
      count(text, /<l>/g),
      name,
    );
    assert.equal(
      sum((g) => (g.faces?.faces.offsets.length ?? 1) - 1),
      count(text, /<f>/g),
      name,
    );
    assert.equal(
      sum((g) => g.fields.reduce((n, f) => n + f.vectors.length / 3, 0)),
      count(text, /<v>/g),
      name,
    );
    const colors = sum((g) =>
      [g.points, g.lines, g.faces, ...g.fields].reduce(
        (n, set) => n + (set?.colors.length ?? 0) / 3,
        0,
      ),
    );
    assert.equal(colors, count(text, /<c>/g), name);
  }
});

test('each of many geometries keeps its own look, whatever those before it look like', () => {
  const colors = Array.from({ length: 40 }, (_, i) => [(i * i) % 23, i % 3, 7]);
  const inner = colors.map(
    (color, i) =>
      `<geometry name="g${i}"><pointSet dim="${2 + (i % 2)}"><points><p name="n${i}">${i} 0</p>` +
      `<thickness>${i % 4}</thickness></points></pointSet><faceSet><faces>` +
      `<color>${color.join(' ')}</color></faces></faceSet></geometry>`,
  );
  const { geometries } = readDocument(
    bytes(`<jvx-model><geometries>${inner.join('')}</geometries></jvx-model>`),
  );
  assert.equal(geometries.length, 40);
  [...geometries].forEach(({ name, dimension, points, lines, faces }, i) => {
    assert.equal(name, `g${i}`);
    assert.equal(dimension, 2 + (i % 2));
    assert.deepEqual([...points.coordinates], [i, 0, 0]);
    assert.deepEqual([...points.names], [[0, `n${i}`]]);
    assert.equal(points.thickness, i % 4);
    assert.equal(lines, undefined);
    assert.deepEqual(faces!.color, colors[i]);
  });
});

test('what follows a geometry changes the look of none', () => {
  const inner =
    '<geometry><pointSet><points><color>1 2 3</color><labelAtt><color>1 2 3</color></labelAtt>' +
    '</points></pointSet><lineSet><lines><color>1 2 3</color></lines></lineSet>' +
    '<vectorField><vectors><color>1 2 3</color></vectors></vectorField>' +
    '<material><diffuse><color>1 2 3</color></diffuse></material></geometry>';
  const stray = ['points', 'labelAtt', 'lines', 'vectors', 'diffuse'].map(
    (name) => `<${name}><color>7 8 9</color></${name}>`,
  );
  const { geometries } = readDocument(
    bytes(`<jvx-model><geometries>${inner}${stray.join('')}${inner}</geometries></jvx-model>`),
  );
  assert.equal(geometries.length, 2);
  for (const { points, lines, fields, material } of geometries) {
    const colors = [
      points.color,
      points.font!.color,
      lines!.color,
      fields[0]!.color,
      material!.diffuse,
    ];
    for (const color of colors) assert.deepEqual(color, [1, 2, 3]);
  }
});

test('a set that comes again takes the place of the first, with all its lists', () => {
  const { points, lines, faces } = only(
    model(
      '<pointSet><points><p name="a">1 2 3</p></points><colors><c>1 2 3</c></colors></pointSet>' +
        '<lineSet><lines><l>0 0</l></lines></lineSet><faceSet><faces><f>0 0 0</f></faces></faceSet>' +
        '<pointSet dim="2"/><lineSet/><faceSet/>',
    ),
  );
  assert.equal(points.coordinates.length + points.colors.length + points.names.size, 0);
  assert.deepEqual([...lines!.lines.offsets, ...faces!.faces.offsets], [0, 0]);
});
