# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
"""The cells of the verdict files: what stood before the review, less source LM1, and what is added to it."""
import collections
import csv
import re

CLASSES = {'metal': 'Metal', 'plast': 'Plast', 'tight': 'Tight', 'misc': 'Misc'}
TEMPERATURES = {1: 20, 2: 40, 3: 60, 4: 80, 5: 100, 6: 120, 7: 140}
TEMPERATURE_ID = {t: i for i, t in TEMPERATURES.items()}
RANK = {'-': 0, '0': 1, '+': 2}
PURE, SUPPLIED, GAS, NOT_STATED = 53, 54, 55, 1
UNSTATED = {NOT_STATED, 2}  # the second: an aqueous solution
# About so many per cent; ranges by their end, "Concentrated" by its usual 90.
PERCENT_OF = {39: 10, 41: 96, 40: 70, 50: 25, 51: 90}


def read(path):
    with open(path, newline='') as file:
        return list(csv.DictReader(file))


class Data:
    """Chemicals, concentrations and materials of the data folder, and cells[class][chemical, concentration,
    temperature][material] = [verdict, its sources]."""

    def __init__(self, folder, before):
        self.chemicals = {int(r['ID']): r for r in read(f'{folder}/chemicals.csv')}
        self.concentrations = {int(r['ID']): r for r in read(f'{folder}/concentrations.csv')}
        self.name = {i: r['NameEN'] for i, r in self.chemicals.items()}
        self.id = {n: i for i, n in self.name.items()}
        self.label = {r['ConcentrationEN']: i for i, r in self.concentrations.items()}
        self.materials = {c: [r['Key'] for r in read(f'{folder}/materials.csv') if r['Class'] == n]
                          for c, n in CLASSES.items()}
        self.cells = {c: collections.defaultdict(dict) for c in CLASSES}
        self.gone_with_lm1 = 0
        self._read_before(before)

    def _read_before(self, before):
        lines = {c: read(f'{before}/verdicts-{c}.csv') for c in CLASSES}
        columns = {c: [k for k in lines[c][0] if k not in ('ChemID', 'Chemical', 'ConcID', 'Concentration', 'TempID',
                                                           'Temperature', 'Source')] for c in CLASSES}
        # A line named its sources as a whole: what each covers is told by lines that have it alone.
        covers = collections.defaultdict(set)
        for c in CLASSES:
            for line in lines[c]:
                sources = line['Source'].split('+')
                if len(sources) == 1:
                    covers[sources[0]].update((c, k) for k in columns[c] if line[k])
        for c in CLASSES:
            for line in lines[c]:
                sources = [s for s in line['Source'].split('+') if s != 'LM1']
                key = (int(line['ChemID']), int(line['ConcID']), int(line['TempID']))
                for k in columns[c]:
                    if not line[k]:
                        continue
                    own = [s for s in sources if (c, k) in covers[s]]
                    if 'LM1' in line['Source'] and not own:
                        self.gone_with_lm1 += 1
                        continue
                    self.cells[c][key][k] = [line[k], set(own or sources)]

    def usual(self):
        """Of each chemical the concentration that a source means which states none."""
        usual = {}
        for i in self.chemicals:
            used = collections.Counter(k[1] for c in CLASSES for k in self.cells[c]
                                       if k[0] == i and k[1] in (NOT_STATED, PURE, SUPPLIED, GAS))
            usual[i] = used.most_common(1)[0][0] if used else NOT_STATED
        return usual

    def percent(self, concentration):
        """The number of a label "10 % (w/w)"; None for others."""
        match = re.fullmatch(r'(\d+(?:\.\d+)?) % \(w/w\)', self.concentrations[concentration]['ConcentrationEN'])
        return float(match[1]) if match else None

    def bounds(self, concentration):
        """The least and greatest per cent that a label may mean; none at all for those outside the scale."""
        if concentration in UNSTATED:
            return 0, 99
        match = re.fullmatch(r'(\d+)-(\d+) % \(w/w\)', self.concentrations[concentration]['ConcentrationEN'])
        return (float(match[1]), float(match[2])) if match else (1, 0)

    def about_percent(self, concentration):
        exact = self.percent(concentration)
        return exact if exact is not None else 100.0 if concentration == PURE else PERCENT_OF.get(concentration)

    def series(self, cls, by):
        """The cells of a class in rows: a dictionary from by(key, material) to lists of (key, material, cell)."""
        rows = collections.defaultdict(list)
        for key, cells in self.cells[cls].items():
            for material, cell in cells.items():
                rows[by(key, material)].append((key, material, cell))
        return rows

    def by_heat(self, cls):
        """Lists of cells that differ in temperature alone, each from cool to hot."""
        for row in self.series(cls, lambda key, material: (key[0], key[1], material)).values():
            yield sorted(row, key=lambda one: one[0][2])

    def by_strength(self, cls):
        """Lists of (per cent, key, material, cell) that differ in concentration alone, each from weak to strong."""
        for row in self.series(cls, lambda key, material: (key[0], key[2], material)).values():
            exact = [(self.percent(key[1]) if key[1] != PURE else 100.0, key, material, cell)
                     for key, material, cell in row]
            yield sorted((one for one in exact if one[0] is not None), key=lambda one: one[0])

    def chemicals_of(self, cls):
        """Of each material the chemicals that there is a verdict on."""
        found = collections.defaultdict(set)
        for key, cells in self.cells[cls].items():
            for material in cells:
                found[material].add(key[0])
        return found
