// The columns of the three lists.
import type { App } from './app.js';
import { element } from './dom.js';
import { ListColumn } from './list.js';
import { compareDesignators, GroupRow, NetRow, PartRow } from './parts.js';
import { texts } from './texts.js';
import { inUnit, millimetresOf } from './units.js';

function fittedText(fitted: boolean | null): string {
  return fitted === null ? texts.fittedUnknown : fitted ? texts.fittedYes : texts.fittedNo;
}

// A box for each of the names, which stands for all parts of a row.
function checkColumns<Row>(app: App, partsOf: (row: Row) => string[]): ListColumn<Row>[] {
  const { settings } = app;
  return settings.values.checks.map((check) => {
    const done = (row: Row): number => partsOf(row).filter((name) => settings.isChecked(check, name)).length;
    return {
      field: `check:${check}`, title: check, width: 90,
      text: (row) => texts.checkedWords[done(row) === partsOf(row).length ? 'all' : done(row) > 0 ? 'some' : 'none'],
      compare: (left, right) => done(left) / partsOf(left).length - done(right) / partsOf(right).length,
      node: (row) => {
        const names = partsOf(row);
        const first = names.length > 1 ? `${names[0]} + ${names.length - 1}` : names[0] ?? '';
        const input = element('input', { type: 'checkbox', 'aria-label': `${check} ${first}`, 'data-check': check });
        const look = (): void => {
          const count = done(row);
          input.checked = count === names.length;
          input.indeterminate = count > 0 && count < names.length;
        };
        look();
        input.addEventListener('look', look);
        input.addEventListener('change', () => settings.check(check, names, input.checked));
        return input;
      },
    };
  });
}

function column<Row>(field: string & keyof Row, title: string, others: Partial<ListColumn<Row>> = {}):
  ListColumn<Row> {
  return { field, title, text: (row) => String(row[field] ?? ''), ...others };
}

export function groupColumns(app: App): ListColumn<GroupRow>[] {
  const byFirst = (left: GroupRow, right: GroupRow): number =>
    compareDesignators(left.designators[0] ?? '', right.designators[0] ?? '');
  return [
    ...checkColumns<GroupRow>(app, (row) => row.designators),
    column('designators', texts.designators, {
      text: (row) => row.designators.join(' '), compare: byFirst, width: 220,
      node: (row) => {
        const cell = element('span', { class: 'names' });
        row.designators.forEach((name) => {
          const made = element('span', { class: 'name' }, name);
          made.addEventListener('click', (event) => {
            event.stopPropagation();
            app.selectParts([name]);
          });
          cell.append(made, ' ');
        });
        return cell;
      },
    }),
    column('quantity', texts.quantity, { isNumber: true, compare: (left, right) => left.quantity - right.quantity }),
    column('value', texts.value),
    column('package', texts.package),
    column('fitted', texts.fitted, { text: (row) => fittedText(row.fitted) }),
    column('side', texts.side),
    column('part', texts.part, { isHidden: true }),
    column('partNumber', texts.partNumber, { isHidden: true }),
    column('description', texts.description, { isHidden: true }),
    column('makersParts', texts.makersParts, { isHidden: true }),
  ];
}

export function partColumns(app: App): ListColumn<PartRow>[] {
  const { components } = app.board.tables;
  const unit = app.settings.units;
  const length = (field: 'x' | 'y' | 'height', title: string): ListColumn<PartRow> => {
    const from = millimetresOf(components.columns.find((one) => one.key === field)?.unit ?? 'mm');
    return {
      field, title: `${title} (${unit})`, isNumber: true, isHidden: true,
      text: (row) => (row[field] === null ? '' : String(inUnit(row[field] * from, unit))),
      compare: (left, right) => (left[field] ?? 0) - (right[field] ?? 0),
    };
  };
  return [
    ...checkColumns<PartRow>(app, (row) => [row.designator]),
    column('designator', texts.designator, {
      compare: (left, right) => compareDesignators(left.designator, right.designator),
    }),
    column('value', texts.value),
    column('package', texts.package),
    column('fitted', texts.fitted, { text: (row) => fittedText(row.fitted) }),
    column('side', texts.side),
    ...(app.board.comparison ? [column<PartRow>('state', texts.differences, {
      text: (row) => (row.state === '' ? '' : texts.state[row.state]),
    })] : []),
    column('part', texts.part, { isHidden: true }),
    column('mount', texts.mount, { isHidden: true }),
    length('x', texts.x), length('y', texts.y),
    column('rotation', texts.rotation, { isNumber: true, isHidden: true,
      compare: (left, right) => (left.rotation ?? 0) - (right.rotation ?? 0) }),
    length('height', texts.height),
    column('partNumber', texts.partNumber, { isHidden: true }),
    column('description', texts.description, { isHidden: true }),
    column('makersParts', texts.makersParts, { isHidden: true }),
  ];
}

export function netColumns(app: App): ListColumn<NetRow>[] {
  const unit = app.settings.units;
  return [
    column('net', texts.net, { width: 200 }),
    column('count', texts.pinCount, { isNumber: true, compare: (left, right) => left.count - right.count }),
    {
      field: 'length', title: `${texts.netLength} (${unit})`, isNumber: true,
      text: (row) => String(inUnit(app.netLength(row), unit)), compare: (left, right) => left.length - right.length,
    },
    column('netClass', texts.netClass, { isHidden: true }),
    column('pins', texts.pins, { text: (row) => row.pins.join(' '), width: 400 }),
  ];
}
