import assert from 'node:assert/strict';
import { test } from 'node:test';
import { compareDesignators, csvOf, groupRows, PartRow } from '../src/parts.js';

function part(designator: string, others: Partial<PartRow> = {}): PartRow {
  return {
    id: designator, designator, value: '', package: '', part: '', side: 'top', mount: '', fitted: true, partNumber: '',
    description: '', makersParts: '', state: '', x: null, y: null, rotation: null, height: null,
    bomPackage: others.package ?? '', ...others,
  };
}

test('designators are in the order in which people read them', () => {
  const names = ['U1', 'R10', 'J1', 'C2', 'R2', 'D1', 'C10', 'L1', 'C2A', 'X9', 'TP1', '7'];
  assert.deepEqual(names.sort(compareDesignators),
    ['C2', 'C2A', 'C10', 'R2', 'R10', 'L1', 'D1', 'U1', '7', 'J1', 'TP1', 'X9']);
});

test('parts of one value and package are one group, fitted and not fitted apart', () => {
  const groups = groupRows([
    part('C1', { value: '100nF', package: '0402' }), part('C2', { value: '100nF', package: '0402', side: 'bottom' }),
    part('C3', { value: '100nF', package: '0603' }), part('C4', { value: '100nF', package: '0402', fitted: false }),
    part('U1', { part: 'A' }), part('U2', { part: 'B' }),
  ]);
  assert.deepEqual(groups.map((group) => group.designators), [['C1', 'C2'], ['C3'], ['C4'], ['U1'], ['U2']]);
  assert.equal(groups[0]!.quantity, 2);
  assert.equal(groups[0]!.side, 'both');
  assert.equal(groups[3]!.value, 'A');
});

test('parts go by the package of the bill of materials, whatever their own is called', () => {
  const groups = groupRows([
    part('C1', { value: '1uF', package: 'C_1', bomPackage: 'C' }),
    part('C2', { value: '1uF', package: 'C_2', bomPackage: 'C' }),
  ]);
  assert.deepEqual(groups.map((group) => [group.package, group.quantity]), [['C', 2]]);
});

test('CSV has quotes where they are needed', () => {
  assert.equal(csvOf(['a', 'b'], [['1,5', 'say "x"'], ['', 'line\nbreak']]),
    'a,b\r\n"1,5","say ""x"""\r\n,"line\nbreak"\r\n');
});
