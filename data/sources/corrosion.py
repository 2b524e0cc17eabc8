# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
"""ND1: from tests of metals to verdicts at our concentrations and temperatures."""
import collections
import glob
import os
import re

from base import GAS, NOT_STATED, PURE, RANK, SUPPLIED, TEMPERATURES

FOLDER = os.path.dirname(os.path.abspath(__file__))
STEPS = sorted(TEMPERATURES.values())
SATURATED, CONCENTRATED, DILUTE, SOLUTION = 52, 51, 3, 2

# The set's name of an environment -> English name here, where they differ by more than spelling.
ALIASES = {
    'Hydrogen Fluoride': 'Hydrogen fluoride, anhydrous', 'Hydrofluosilicic Acid': 'Hexafluorosilicic acid',
    'Fluosilicic Acid': 'Hexafluorosilicic acid', 'Ammonia': 'Ammonia, anhydrous',
    'Ammonium Hydroxide': 'Ammonia solution', 'Sodium Hydrogen Phosphate': 'Disodium hydrogen phosphate',
    'Sodium Tetraborate': 'Sodium borate', 'Borax': 'Sodium borate',
    'Sodium Bicarbonate': 'Sodium hydrogen carbonate', 'Sodium Bisulfate': 'Sodium hydrogen sulfate',
    'Sodium Bisulfite': 'Sodium hydrogen sulfite', 'Ethyl Alcohol': 'Ethanol', 'Methyl Alcohol': 'Methanol',
    'Butyl Alcohol': '1-Butanol', 'Isopropyl Alcohol': 'Isopropanol', 'Propyl Alcohol': '1-Propanol',
    'Glycerin': 'Glycerol', 'Glycerine': 'Glycerol', 'Gasoline': 'Petrol', 'Seawater': 'Sea water',
    'Alum': 'Potassium aluminium sulfate', 'Aluminum Potassium Sulfate': 'Potassium aluminium sulfate',
    'Mercury Chloride': 'Mercuric chloride', 'Cupric Sulfate': 'Copper sulfate',
    'Copper Chloride': 'Copper(II) chloride', 'Cupric Chloride': 'Copper(II) chloride',
    'Iron Chloride': 'Ferric chloride', 'Calcium Bisulfite': 'Calcium hydrogen sulfite',
    'Ethyl Ether': 'Diethyl ether', 'Ether': 'Diethyl ether', 'Carbon Bisulfide': 'Carbon disulfide',
    'Benzole': 'Benzene', 'Calcium Hypochloride': 'Calcium hypochlorite', 'Fatty Acid': 'Fatty acids',
    'Detergent': 'Detergent solution', 'Ethyl Glycol': '2-Ethoxyethanol', 'Cellosolve': '2-Ethoxyethanol',
    'Dichloromethane': 'Methylene chloride', 'Tetrachloroethylene': 'Perchloroethylene',
    'Furfuraldehyde': 'Furfural', 'Monochloroacetic Acid': 'Chloroacetic acid',
    'Hydrogen Cyanide': 'Hydrocyanic acid', 'Hydrogen Chloride': 'Hydrogen chloride gas', 'Tannin': 'Tannic acid',
    'Tin Chloride': 'Stannous chloride', 'Soap': 'Soap solution', 'Potassium Bichromate': 'Potassium dichromate',
    'Potassium Bisulfate': 'Potassium hydrogen sulfate', 'Potassium Bicarbonate': 'Potassium hydrogen carbonate',
    'Hydroxyacetic Acid': 'Glycolic acid', 'Carbolic Acid': 'Phenol', 'Cresylic Acid': 'Cresol',
    'Lubricating Oil': 'Motor oil', 'Petroleum': 'Crude oil', 'Petroleum Naphtha': 'Naphtha',
    'Barium Chloride Dihydrate': 'Barium chloride', 'Paraffin': 'Paraffin wax', 'Petroleum Oil, Crude': 'Crude oil'}

# Our keys of the materials, by those of the extract.
MATERIALS = {'A20': 'Alloy20', 'C276': 'C-276'} | {
    k: k for k in ('CS', 'CI', 'Brass', 'Bronze', 'AlBronze', 'Cu', '304', '316', 'Al', 'Ti', 'Ni', '400', '600',
                   '625', '825', '2205', '904L', 'Pb', 'Zr', 'Ta')}
# The extract has all copper-zinc alloys under one key.
BRASSES = [(re.compile('red brass|commercial bronze', re.I), 'RedBrass'),
           (re.compile('admiralty', re.I), 'Admiralty'),
           (re.compile('free-cut|architectural', re.I), 'LeadedBrass'),
           (re.compile('silicon|aluminum', re.I), None)]

ATTACK = re.compile(r'pit|crevice|crack|stress|scc|intergran|selective|local|dezinc|graphit|weld|attack', re.I)
# Comments that tell of more than the chemical and the metal.
SPECIAL = re.compile(
    r'\bbar\b|plus |with |molten|fused|vapor|vapour|pressure|steam|autoclave|mercury cell|diaphragm|activated|'
    r'passivat|processing|field|plant|spray|immersion, |alternate|ph ?\d|stabili|inhibit|contain|chlorid|'
    r'saturated with|impur|irradiat|galvanic|nickel|commercial|drops|sulfur content|coat|anod|deposit|weld|sensiti|'
    r'stress|U-bend|reflux|crude|waste|bleach|tank|column|% ?(h|w)|mixed|mixture|sludge|slurry|paint', re.I)

# Boiling points in degrees: pure substances, then solutions as (up to so many per cent, boiling point).
BOILING = {
    'Acetone': 56, 'Methanol': 65, 'Ethanol': 78, '1-Propanol': 97, 'Isopropanol': 82, '1-Butanol': 118,
    'Benzene': 80, 'Toluene': 111, 'Xylene': 140, 'Carbon tetrachloride': 77, 'Chloroform': 61,
    'Trichloroethylene': 87, 'Perchloroethylene': 121, 'Methylene chloride': 40, 'Ethylene dichloride': 84,
    'Carbon disulfide': 46, 'Chlorobenzene': 132, 'Acetic anhydride': 140, 'Ethyl acetate': 77,
    'Methyl ethyl ketone': 80, 'Diethyl ether': 35, 'Pyridine': 115, 'Water': 100, 'Distilled water': 100,
    'Drinking water': 100, 'Deionised water': 100, 'Bromine': 59, 'Butyric acid': 163, 'Propionic acid': 141,
    'Acetic acid': 118, 'Formic acid': 101, 'Turpentine': 155, 'Furfural': 162, 'Aniline': 184, 'Phenol': 182}
SOLUTION_BOILING = {
    'Sulfuric acid': [(10, 101), (20, 104), (30, 108), (40, 114), (50, 123), (60, 140), (70, 163)],
    'Nitric acid': [(10, 101), (30, 108), (50, 117), (70, 121)],
    'Phosphoric acid': [(20, 101), (50, 108), (70, 124), (85, 158)], 'Hydrochloric acid': [(10, 103), (20, 109)],
    'Acetic acid': [(50, 102), (80, 104), (99, 110), (100, 118)], 'Formic acid': [(50, 102), (100, 107)],
    'Sodium hydroxide': [(10, 103), (20, 108), (30, 117), (40, 128), (50, 142)],
    'Hydrofluoric acid': [(20, 104), (40, 112)], 'Lactic acid': [(50, 104), (85, 115)], 'Citric acid': [(50, 106)],
    'Oxalic acid': [(50, 104)], 'Tartaric acid': [(50, 106)], 'Chloroacetic acid': [(50, 106)],
    'Hydrobromic acid': [(20, 105), (48, 126)], 'Chromic acid': [(20, 102), (50, 110)]}
# Saturated solutions that boil far above water: how far is known of one.
SATURATED_BOILING = dict.fromkeys(
    ('Calcium chloride', 'Magnesium chloride', 'Zinc chloride', 'Potassium carbonate', 'Sodium hydroxide',
     'Potassium hydroxide', 'Ammonium nitrate', 'Lithium chloride', 'Ferric chloride', 'Aluminium chloride',
     'Potassium acetate', 'Sodium dichromate')) | {'Sodium nitrate': 120}

Row = collections.namedtuple('Row', 'environment code material rate attack comment concentration temperature '
                                    'reference')


def load():
    """The extract's rows, each once, in its order."""
    rows = {}
    for file in sorted(glob.glob(f'{FOLDER}/corrosion-*.txt')):
        environment = None
        for number, line in enumerate(open(file), 1):
            line = line.rstrip('\n')
            if line.startswith('@'):
                environment = line[1:].strip()
            elif line.strip():
                fields = [f.strip() for f in line.split('|')]
                if len(fields) != 8:
                    raise SystemExit(f'{file}:{number}: {len(fields)} fields')
                rows[Row(environment, *fields)] = True
    return list(rows)


def material_of(row):
    if row.code == 'Brass':
        for pattern, key in BRASSES:
            if pattern.search(row.material):
                return key
    return MATERIALS.get(row.code)


def contradicts_itself(row):
    """Figures whose two units don't agree, or that belong to a mixture: told by those who copied them."""
    where = (row.environment.lower(), row.code)
    if 'CHECK' in row.comment:
        return True
    if where[0] == 'sodium nitrate' and row.rate.startswith('71.3'):
        return True
    if where[0] == 'sodium silicate' and row.rate in ('125 max', '50 max'):
        return True
    if where == ('sodium hypochlorite', 'Ti'):
        return '0.03' in row.rate
    if where == ('sodium sulfide', '304'):
        return row.temperature == '171'
    if where == ('sodium hydroxide', 'AlBronze'):
        return True
    if where[0] == 'sulfuric acid':
        at = (row.code, row.concentration, row.temperature)
        return (at in (('Ni', '5', '77'), ('600', '5', '80'), ('625', '10', '70'))
                or at[:2] == ('Cu', '40') and row.rate == '0.6 max'
                or row.reference == '212' and at[:2] in (('A20', '60'), ('A20', '56'))
                or row.reference == '253' and at[1:] == ('', 'Boiling')
                or row.reference == '90' and at in (('Ti', '75', '35'), ('Ti', '1', '100'))
                or at[0] == 'Ta' and ('Boiling' in at[2] or at[2] == '175'))
    return False


def verdict(rate):
    """Of a rate in mm a year or a grade; None where it can't be told."""
    grade = re.match(r'^([ABCD])\b', rate)
    if grade and not re.search(r'\d', rate):
        return {'A': '+', 'B': '+', 'C': '0', 'D': '-'}[grade[1]]
    numbers = [float(n) for n in re.findall(r'\d*\.?\d+', rate)]
    if not numbers or '/' in rate:
        return None
    most = max(numbers)
    if '>' in rate or 'min' in rate.lower():  # at least so much
        return '-' if most >= 0.1 else None
    return '+' if most <= 0.1 else '0' if most <= 1.0 else '-'


def lowered(one):
    return {'+': '0', '0': '-', '-': '-'}[one]


def boiling(name, kind, percent):
    """(lowest, highest) boiling point of the solution at normal pressure; None where it isn't known."""
    if kind == 'pure':
        return (BOILING[name],) * 2 if name in BOILING else None
    if kind == 'percent':
        if name in SOLUTION_BOILING:
            weaker = 100
            for most, point in SOLUTION_BOILING[name]:
                if percent <= most:
                    return (100 if percent <= 10 else weaker), point
                weaker = point
            return None
        return (100, 102) if percent <= 10 else (100, 110) if percent <= 30 else None
    if kind == 'saturated':
        if name in SATURATED_BOILING:
            return (100, SATURATED_BOILING[name]) if SATURATED_BOILING[name] else None
        return 100, 118
    return (100, 102) if kind == 'weak' else None


def temperatures(text, boils):
    """(lowest, highest) in degrees; None where it can't be read. Not stated is 20 ºC."""
    text = text.strip().lower().replace('up to', '0 -').replace('to', '-').replace('~', '').replace('°', '')
    if not text:
        return 20, 20
    if 'min' in text:
        return None
    text = re.sub(r'\broom( temperature)?\b|ambient', '20', text)
    if 'boil' in text:
        if boils is None:
            return None
        lowest = re.sub('boiling.*|bp', '', text).strip(' -')
        return (float(lowest) if lowest else boils[0]), boils[1]
    numbers = [float(n) for n in re.findall(r'\d+\.?\d*', text)]
    return (min(numbers), max(numbers)) if 0 < len(numbers) <= 2 else None


def step_below(degrees):
    """The step that a "+" counts for. 93, 38 and 66 degrees are round in the other scale."""
    degrees = 20 if 15 <= degrees <= 25 else degrees
    return max((s for s in STEPS if s <= degrees + 2), default=None)


def step_above(degrees):
    degrees = 20 if degrees <= 25 else degrees
    return min((s for s in STEPS if s >= degrees - 2), default=None)


def normal(name):
    name = name.lower().replace('aluminum', 'aluminium').replace('sulph', 'sulf').replace('(iii)', '').strip()
    return re.sub(r'[^a-z0-9()]+', ' ', name).strip()


class Places:
    """Where a test belongs: chemical, concentration, kind of solution (for its boiling point), per cent."""

    def __init__(self, data):
        self.data = data
        self.names = {normal(n): i for n, i in data.id.items()}
        self.usual = data.usual()
        self.lost = collections.Counter()

    def of(self, row):
        comment, stated = row.comment.lower(), row.concentration.rstrip('%').strip().lower()
        chemical = self._chemical(row, comment, stated)
        if chemical is None:
            self.lost['chemical ' + row.environment] += 1
            return None
        usual = self.usual[chemical]
        if row.environment.startswith('Chlorine') and self.data.name[chemical].startswith('Chlorine'):
            if not row.environment.endswith(('Water', 'Dioxide')):
                return chemical, PURE if self.data.name[chemical] == 'Chlorine, liquid' else GAS, 'pure', None
        anhydrous = row.environment == 'Hydrofluoric Acid' and self.data.name[chemical] != 'Hydrofluoric acid'
        if row.environment == 'Water' or anhydrous:
            return chemical, usual, 'pure', None
        special = '' if row.environment == 'Sodium Phosphate' else row.comment
        bounded = not stated and re.match(r'[<>]\d', comment)  # no label tells it
        if bounded or SPECIAL.search(special) or 'fuming' in comment or 'vapor' in stated or 'vapour' in stated:
            self.lost['comment'] += 1
            return None
        if not stated:
            return self._unstated(chemical, usual, comment)
        return self._stated(chemical, usual, stated)

    def _chemical(self, row, comment, stated):
        at = self.data.id
        environment = row.environment
        if environment == 'Sodium Phosphate':
            return (at['Disodium hydrogen phosphate'] if 'secondary' in comment
                    else at['Trisodium phosphate'] if 'tertiary' in comment else None)
        if environment.startswith('Ammonia'):
            dry = 'anhydrous' in comment + stated + environment.lower()
            if dry or not stated and any(w in comment for w in ('dry', 'gas', 'liquid')):
                return at['Ammonia, anhydrous']
            return at['Ammonia solution'] if stated or 'solution' in comment or 'aqueous' in comment else None
        if environment.startswith('Chlorine') and 'Water' not in environment and 'Dioxide' not in environment:
            if 'liquid' in comment + stated:
                return at['Chlorine, liquid']
            if any(w in comment for w in ('moist', 'wet', 'water')) or any(
                    w in environment.lower() for w in ('moist', 'wet')):
                return at['Chlorine gas, wet']
            return at['Chlorine gas, dry'] if 'dry' in comment + stated + environment.lower() else None
        if environment == 'Hydrofluoric Acid' and ('anhydrous' in comment + stated or stated == '100'):
            return at['Hydrogen fluoride, anhydrous']
        if environment == 'Water':
            if 'tap' in comment or 'potable' in comment:
                return at['Drinking water']
            if 'distil' in comment:
                return at['Distilled water']
            if 'sea' in comment:
                return at['Sea water']
            return None if any(w in comment for w in ('carbonat', 'chlor', 'salt')) else at['Water']
        return self.names.get(normal(ALIASES.get(environment, environment)))

    def _unstated(self, chemical, usual, comment):
        if 'saturated' in comment:
            return chemical, SATURATED, 'saturated', None
        if 'dilute' in comment:
            return chemical, DILUTE, 'weak', None
        if comment.startswith('conc') or 'concentrated' in comment:
            return chemical, CONCENTRATED, 'strong', None
        if usual == NOT_STATED and any(w in comment for w in ('solution', 'aqueous', 'in water')):
            return chemical, SOLUTION, 'weak', None
        if usual == GAS:
            if any(w in comment for w in ('moist', 'wet', 'water')):
                self.lost['wet gas'] += 1
                return None
            return chemical, GAS, 'pure', None
        if 'dry' in comment and usual == NOT_STATED:
            self.lost['dry salt'] += 1
            return None
        return chemical, usual, 'pure' if usual in (PURE, SUPPLIED) else 'unknown', None

    def _stated(self, chemical, usual, stated):
        words = {'saturated': (SATURATED, 'saturated'), 'saturated solution': (SATURATED, 'saturated'),
                 'sat': (SATURATED, 'saturated'), 'conc': (CONCENTRATED, 'strong'),
                 'concentrated': (CONCENTRATED, 'strong'), 'dilute': (DILUTE, 'weak')}
        if stated in words:
            return chemical, *words[stated], None
        if stated in ('all', 'all concentrations', '0-100', 'any'):
            return chemical, usual, 'unknown', None
        if stated in ('pure', 'glacial', 'anhydrous', '100', '99', '99+') or re.fullmatch(r'99\.\d+', stated):
            return self._pure(chemical, usual, stated)
        if usual == GAS:
            self.lost['per cent of a gas'] += 1
            return None
        for pattern, text in ((r'~?(\d+(?:\.\d+)?)', '{:g}'), (r'(\d+)-(\d+)', '{:g}-{:g}')):
            match = re.fullmatch(pattern, stated)
            numbers = [float(n) for n in match.groups()] if match else []
            label = (text.format(*numbers) if match else '') + ' % (w/w)'
            if label in self.data.label:
                return chemical, self.data.label[label], 'percent', numbers[-1]
        self.lost['concentration ' + stated] += 1
        return None

    def _pure(self, chemical, usual, stated):
        name = self.data.name[chemical].lower()
        if usual == GAS:
            return chemical, GAS, 'pure', None
        if stated == 'anhydrous' and usual == NOT_STATED and name != 'acetic acid':
            self.lost['anhydrous salt'] += 1
            return None
        if usual in (PURE, SUPPLIED):
            return chemical, usual, 'pure', None
        return (chemical, PURE, 'pure', None) if re.search('acid|hydr', name) and 'oxide' not in name else None


def tests(data, figures):
    """Of each cell (chemical, concentration, temperature in degrees, material) the verdicts of its tests."""
    places = Places(data)
    found = collections.defaultdict(list)
    for row in load():
        key = material_of(row)
        if key is None:
            continue
        if contradicts_itself(row):
            figures['contradicting'] += 1
            continue
        one = verdict(row.rate)
        if one is None:
            continue
        if row.rate.startswith('B') and not row.temperature:
            one = '0'
        if ATTACK.search(row.attack) and not row.attack.lower().startswith('no '):
            one = lowered(one)
        place = places.of(row)
        if place is None:
            continue
        chemical, concentration, kind, percent = place
        span = temperatures(row.temperature, boiling(data.name[chemical], kind, percent))
        if span is None:
            continue
        if one == '+':
            steps = {step_below(span[0] if 'oil' in row.temperature.lower() else span[1])}
        else:
            steps = {step_above(span[1]), *(step for step in STEPS if span[0] <= step <= span[1])}
        for step in steps - {None}:
            found[chemical, concentration, step, key].append(one)
    return found


def verdicts(data, outliers, figures):
    """Of each cell its verdict: the worst of its tests, unless it is one against at least three that agree: those go
    into the outliers. A "+" holds at the lower temperatures where no test says worse."""
    cells = {}
    for key, found in tests(data, figures).items():
        worst = min(found, key=RANK.get)
        others = [one for one in found if one != worst]
        if found.count(worst) == 1 and len(others) >= 3 and len(set(others)) == 1:
            outliers.append(key)
            worst = others[0]
        cells[key] = worst
    for (chemical, concentration, degrees, material), one in list(cells.items()):
        if one == '+':
            lowest = 100 if data.name[chemical] == 'Steam' else 20
            for step in STEPS:
                if lowest <= step < degrees:
                    cells.setdefault((chemical, concentration, step, material), '+')
    return cells
