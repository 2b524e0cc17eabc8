#!/usr/bin/env python3
# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
"""Makes the verdict files, review.csv and SOURCES.md of the data folder anew. See README.md."""
import collections
import csv
import os
import sys

import base
import corrosion
import rules
import tubes
from base import CLASSES, RANK, TEMPERATURES, TEMPERATURE_ID

FOLDER = os.path.dirname(os.path.abspath(__file__))
DATA = os.path.dirname(FOLDER)
THIN = 20  # chemicals


def add(data, figures, cls, key, material, verdict, source):
    """A verdict of one more source; where something else stands, the more cautious of the two."""
    cells = data.cells[cls][key]
    if material not in cells:
        cells[material] = [verdict, {source}]
    elif cells[material][0] == verdict:
        figures['agree ' + source] += 1
        cells[material][1].add(source)
    else:
        figures['differ ' + source] += 1
        if RANK[verdict] < RANK[cells[material][0]]:
            cells[material] = [verdict, {source}]


def add_corrosion(data, outliers, figures):
    """ND1's verdicts. Returns the chemicals of each metal that the materials don't list."""
    withheld = collections.defaultdict(set)
    for (chemical, concentration, degrees, material), verdict in corrosion.verdicts(data, outliers, figures).items():
        if material in data.materials['metal']:
            add(data, figures, 'metal', (chemical, concentration, TEMPERATURE_ID[degrees]), material, verdict, 'ND1')
        else:
            withheld[material].add(chemical)
    return withheld


def add_tubes(data, figures):
    """LC4's verdicts. One tube that lasted doesn't outweigh a chart's "-" at a strength that isn't stated."""
    room = TEMPERATURE_ID[20]
    for chemical, concentration, material, verdict in tubes.verdicts(data):
        worse = [cell for one in (*base.UNSTATED, base.SUPPLIED)
                 for cell in [data.cells['tight'].get((chemical, one, room), {}).get(material)]
                 if one != concentration and cell and cell[0] == '-']
        if worse and verdict == '+':
            figures['tube'] += 1
            data.cells['tight'][chemical, concentration, room].setdefault(material, ['-', set(worse[0][1])])
        else:
            add(data, figures, 'tight', (chemical, concentration, TEMPERATURE_ID[20]), material, verdict, 'LC4')


def add_seals(data):
    """LC3's ratings of the chemicals that came later."""
    for line in base.read(f'{FOLDER}/seals.csv'):
        key = (data.id[line['Chemical']], data.label[line['Concentration']], TEMPERATURE_ID[int(line['Temperature'])])
        for material in data.materials['tight']:
            if line.get(material):
                data.cells['tight'][key][material] = [{'1': '+', '2': '0'}.get(line[material], '-'), {'LC3'}]


def add_newer(data, figures):
    """BU1's ratings, at 20 and 50 ºC, of the chemicals that came later. The second counts at 60 ºC, where it is
    worse."""
    verdicts = {'1': '+', '2': '+', '1L': '0', '2L': '0', '3': '0', '4': '-'}
    for line in base.read(f'{FOLDER}/newer.csv'):
        chemical, concentration = data.id[line['Chemical']], data.label[line['Concentration']]
        degrees = TEMPERATURE_ID[int(line['Temperature'])]
        for cls in CLASSES:
            for material in data.materials[cls]:
                cool, warm = map(verdicts.get, (line.get(material) or '/').split('/'))
                if cool:
                    add(data, figures, cls, (chemical, concentration, degrees), material, cool, 'BU1')
                if cool and warm and RANK[warm] < RANK[cool]:
                    add(data, figures, cls, (chemical, concentration, TEMPERATURE_ID[60]), material, warm, 'BU1')


def refuse_unstated(data, refused):
    """A range takes the worst of the strengths inside it; a strength that isn't stated may be any of them."""
    for cls in CLASSES:
        for row in data.by_strength(cls):
            bad = [percent for percent, _, _, cell in row if cell[0] == '-']
            if not bad:
                continue
            _, key, material, _ = row[0]
            for concentration in data.concentrations:
                cell = data.cells[cls].get((key[0], concentration, key[2]), {}).get(material)
                if cell is None or cell[0] != '+':
                    continue
                low, high = data.bounds(concentration)
                if data.percent(concentration) is None and any(low <= percent <= high for percent in bad):
                    cell[0] = '0' if concentration in base.UNSTATED else '-'
                    refused[cls, (key[0], concentration, key[2]), material] = 'r'


def refuse(data):
    """Takes back what is known not to hold. Returns (class, key, material) -> group of the rule."""
    refused = {}
    for cls in CLASSES:
        for key, cells in data.cells[cls].items():
            solution = rules.Solution(data.about_percent(key[1]), key[1], TEMPERATURES[key[2]])
            for material, cell in list(cells.items()):
                best, group = rules.highest(cls, data.name[key[0]], material, solution)
                if cell[0] != '+' or best == '+':
                    continue
                refused[cls, key, material] = group
                if best is None:
                    del cells[material]
                else:
                    cell[0] = best
    refuse_unstated(data, refused)
    for cls in CLASSES:
        found = []
        for row in data.by_strength(cls):
            bad = [percent for percent, _, _, cell in row if cell[0] == '-']
            found += [(key, material, cell) for percent, key, material, cell in row
                      if cell[0] == '+' and bad and bad[0] < percent < bad[-1]]
        for key, material, cell in found:
            cell[0] = '-'
            refused[cls, key, material] = 'p'
    return refused


def cool(data, figures):
    """A verdict never gets better as it gets hotter."""
    for cls in CLASSES:
        for row in data.by_heat(cls):
            worst = row[0][2]
            for _, _, cell in row:
                if RANK[cell[0]] > RANK[worst[0]]:
                    cell[:] = [worst[0], set(worst[1])]
                    figures['lowered'] += 1
                elif RANK[cell[0]] < RANK[worst[0]]:
                    worst = cell


def fill_holes(data, figures):
    """A temperature between two that have the same verdict takes it."""
    for cls in CLASSES:
        for row in list(data.by_heat(cls)):
            holes = 0
            for (cooler, material, one), (hotter, _, other) in zip(row, row[1:]):
                if one[0] != other[0]:
                    continue
                for temperature in range(cooler[2] + 1, hotter[2]):
                    data.cells[cls][cooler[0], cooler[1], temperature][material] = [one[0], one[1] | other[1]]
                    holes += 1
            figures['filled'] += holes
            figures['series'] += holes > 0


def weaker_but_worse(data):
    """At 20 ºC a weaker solution is "-" and a stronger one "+": to be looked at, each."""
    found = []
    for cls in CLASSES:
        for row in data.by_strength(cls):
            bad = [percent for percent, key, _, cell in row if key[2] == 1 and cell[0] == '-']
            if bad and any(cell[0] == '+' and percent > bad[0] for percent, _, _, cell in row):
                found.append(f'{data.name[row[0][1][0]].lower()} on {row[0][2]}')
    return found


def write_verdicts(data, figures):
    for cls in CLASSES:
        materials = data.materials[cls]
        with open(f'{DATA}/verdicts-{cls}.csv', 'w', newline='') as file:
            writer = csv.writer(file, lineterminator='\n')
            writer.writerow(['ChemID', 'Chemical', 'ConcID', 'Concentration', 'TempID', 'Temperature', *materials,
                             'Source'])
            for key in sorted(data.cells[cls]):
                cells = {k: cell for k, cell in data.cells[cls][key].items() if k in materials}
                if not cells:
                    continue
                by_source = collections.defaultdict(list)
                for k, (_, sources) in cells.items():
                    by_source['+'.join(sorted(sources))].append(k)
                    figures['two'] += len(sources) > 1
                    figures.update(sources)
                main = max(by_source, key=lambda one: len(by_source[one]))
                source = '; '.join([main] + [f"{','.join(sorted(by_source[one], key=materials.index))}: {one}"
                                             for one in sorted(by_source) if one != main])
                writer.writerow([key[0], data.chemicals[key[0]]['NameSE'], key[1],
                                 data.concentrations[key[1]]['ConcentrationSE'], key[2], f'{TEMPERATURES[key[2]]}ºC',
                                 *(cells[k][0] if k in cells else '' for k in materials), source])
                figures[cls] += len(cells)
                figures[cls + '20'] += len(cells) if key[2] == 1 else 0


def write_review(data, refused, review, figures):
    """What vemora-db check --review watches over."""
    lines = {}

    def add(cls, key, material, reason):
        place = (key[0], key[1], cls, material)
        if place not in lines or key[2] < lines[place][0]:
            lines[place] = (key[2], reason or lines.get(place, (0, 'as above'))[1])

    for (cls, key, material), group in refused.items():
        add(cls, key, material, rules.REASONS[group])
    for line in base.read(review):
        cls = next(c for c in CLASSES if line['material'] in data.materials[c])
        key = (data.id[line['chemical']], data.label[line['conc']], TEMPERATURE_ID[int(line['temp'])])
        cell = data.cells[cls].get(key, {}).get(line['material'])
        if cell and cell[0] == '+':
            raise SystemExit(f'refused by the review, but still "+": {line}')
        add(cls, key, line['material'], '' if line['reason'] == 'same' else line['reason'])
    with open(f'{DATA}/review.csv', 'w', newline='') as file:
        writer = csv.writer(file, lineterminator='\n')
        writer.writerow('Rule,ChemID,Chemical,ConcID,Concentration,TempID,Temperature,Class,Key,Reason'.split(','))
        order = list(CLASSES)
        for (chemical, concentration, cls, material), (temperature, reason) in sorted(
                lines.items(), key=lambda one: (*one[0][:2], order.index(one[0][2]), one[0][3])):
            writer.writerow(['not +', chemical, data.chemicals[chemical]['NameSE'], concentration,
                             data.concentrations[concentration]['ConcentrationSE'], temperature,
                             f'{TEMPERATURES[temperature]}ºC', CLASSES[cls], material, reason])
        thin = []
        for cls in CLASSES:
            chemicals = data.chemicals_of(cls)
            for material in data.materials[cls]:
                if len(chemicals[material]) < THIN:
                    thin.append(f'{material} ({len(chemicals[material])} chemicals)')
                    writer.writerow(['thin'] + [''] * 6 + [CLASSES[cls], material,
                                                           f'{len(chemicals[material])} chemicals'])
    figures['review'] = len(lines)
    return thin


def write_sources(data, figures, words):
    def number(n):
        return f'{n:,}'.replace(',', ' ')

    values = collections.defaultdict(lambda: '0', {k.replace(' ', '_'): number(v) for k, v in figures.items()})
    values.update(words)
    with open(f'{FOLDER}/SOURCES.md.in') as template, open(f'{DATA}/SOURCES.md', 'w') as file:
        file.write(template.read().format_map(values))


def main(before, review):
    figures = collections.Counter()
    data = base.Data(DATA, before)
    add_seals(data)
    outliers = []
    withheld = add_corrosion(data, outliers, figures)
    add_tubes(data, figures)
    add_newer(data, figures)
    refused = refuse(data)
    figures['between'] = sum(group == 'p' for group in refused.values())
    cool(data, figures)
    fill_holes(data, figures)
    write_verdicts(data, figures)
    thin = write_review(data, refused, review, figures)
    figures.update(chemicals=len(data.chemicals), concentrations=len(data.concentrations), lm1=data.gone_with_lm1,
                   materials=sum(map(len, data.materials.values())), all=sum(figures[c] for c in CLASSES),
                   all20=sum(figures[c + '20'] for c in CLASSES))
    write_sources(data, figures, {
        'withheld': ', '.join(f'{k} ({len(v)})' for k, v in sorted(withheld.items())),
        'outliers': '; '.join(sorted(
            f"{data.name[key[0]].lower()}, {data.concentrations[key[1]]['ConcentrationEN'].lower()}, {key[3]}, "
            f'{key[2]} ºC' for key in outliers)),
        'look': '; '.join(weaker_but_worse(data)) or 'none',
        'thin': f"Few verdicts stand behind {', '.join(thin)}." if thin
                else 'Every material has verdicts on 20 chemicals or more.'})
    print(dict(figures))
    for cls in CLASSES:
        print(cls, {k: len(v) for k, v in sorted(data.chemicals_of(cls).items(), key=lambda one: len(one[1]))})


if __name__ == '__main__':
    if len(sys.argv) != 3:
        raise SystemExit('Usage: make.py BEFORE REVIEW')
    main(*sys.argv[1:])
