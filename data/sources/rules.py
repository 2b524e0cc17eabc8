# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
"""What is known of the materials: where no "+" stands, whatever its source. Told in SOURCES.md."""
from dataclasses import dataclass
from typing import Callable, Optional

NEUTRAL_CHLORIDES = {'Sodium chloride', 'Potassium chloride', 'Lithium chloride', 'Sodium bromide', 'Potassium bromide'}
SOUR_CHLORIDES = {'Magnesium chloride', 'Calcium chloride', 'Ammonium chloride', 'Barium chloride', 'Ammonium bromide'}
ACID_CHLORIDES = {'Nickel chloride', 'Zinc chloride', 'Stannous chloride', 'Stannic chloride', 'Aluminium chloride',
                  'Ferrous chloride'}
OXIDISING_CHLORIDES = {'Ferric chloride', 'Copper(II) chloride', 'Mercuric chloride'}
HYPOCHLORITES = {'Sodium hypochlorite', 'Potassium hypochlorite', 'Calcium hypochlorite', 'Hypochlorous acid'}
AMINES = {'Methylamine', 'Dimethylamine', 'Trimethylamine', 'Diethylamine', 'Triethylamine', 'Ethylenediamine'}
KETONES = {'Acetone', 'Methyl ethyl ketone', 'Methyl isobutyl ketone', 'Cyclohexanone', 'Acetophenone',
           'Diacetone alcohol'}
ALKALIS = {'Sodium hydroxide', 'Potassium hydroxide', 'Barium hydroxide', 'Calcium hydroxide', 'Trisodium phosphate',
           'Sodium carbonate', 'Potassium carbonate', 'Sodium sulfide', 'Sodium cyanide', 'Potassium cyanide',
           'Sodium peroxide', 'Black liquor', 'White liquor'}
OXIDISERS = {'Sodium chlorite', 'Ammonium persulfate', 'Potassium permanganate', 'Sodium permanganate',
             'Chlorine dioxide', 'Bromine', 'Bromine water', 'Chlorine water', 'Peracetic acid'}
CHLORATES = {'Potassium chlorate', 'Sodium chlorate', 'Sodium perchlorate'}
LIQUORS = {'Black liquor', 'White liquor'}
FLUORIDES = {'Ammonium fluoride', 'Sodium fluoride', 'Aluminium fluoride'}
AMMONIUM_SALTS = {'Ammonium sulfate', 'Ammonium chloride', 'Ammonium carbonate', 'Ammonium sulfide',
                  'Ammonium bromide', 'Ammonium dihydrogen phosphate', 'Ammonium persulfate', 'Ammonium fluoride'}
FLUORIDE_ACIDS = {'Hexafluorosilicic acid', 'Hydrofluoric acid'}
AROMATIC = {'Benzaldehyde', 'Furfural', 'Acetophenone'}
CHLORINATED = {'Methyl chloride', 'Methylene chloride', 'Chloroform', 'Ethylene dichloride', 'Ethyl chloride'}
STRONG_ALKALIS = {'Sodium hydroxide', 'Potassium hydroxide'}
COPPER = {'Cu', 'Brass', 'RedBrass', 'LeadedBrass', 'Admiralty', 'Bronze', 'AlBronze'}
PURE, GAS = 53, 55  # concentrations


@dataclass
class Solution:
    """A chemical as it meets the material: per cent by weight (None: not known), concentration's ID, ºC."""
    percent: Optional[float]
    concentration: int
    temperature: int


@dataclass
class Rule:
    group: str  # the reason in review.csv, by REASONS
    cls: str
    materials: set
    chemicals: set
    best: Optional[str]  # None: no verdict at all
    at: Callable[[Solution], bool] = lambda s: True


REASONS = {
    'a': 'fluoride acids attack stainless steel and cast iron', 'b': 'an acid salt is an acid', 'c': 'sulfonation',
    'd': 'a wet gas is an acid; dry ones are seldom dry', 'e': 'oxidised or cracked when hot',
    'f': 'loses its passive film when hot', 'g': 'alkalis dissolve aluminium', 'h': 'silicone rubber is attacked',
    'i': 'alkalis attack fluororubber', 'j': 'swells', 'k': 'amines and ketones attack PVDF',
    'l': 'chlorides at rest: pitting, stress corrosion', 'm': 'the other concentrations are -',
    'n': 'contradicts what is known of the metal', 'o': 'known to attack the metal',
    'p': 'between two concentrations that are both -', 'q': 'oxidisers attack it',
    'r': 'a strength that it may mean is -', 's': 'alkalis attack it'}


def strong(percent):
    return lambda s: s.percent is None or s.percent >= percent


def stated(percent):
    return lambda s: bool(s.percent) and s.percent >= percent


def hot(temperature):
    return lambda s: s.temperature >= temperature


# The first that fits holds.
RULES = [
    Rule('a', 'metal', {'304', '316', 'CI'}, FLUORIDE_ACIDS | {'Ammonium fluoride'}, '-'),
    Rule('a', 'metal', {'304', '316'}, {'Sodium fluoride'}, '0'),
    Rule('b', 'metal', {'304', 'Al', 'CS', 'CI'}, {'Sodium hydrogen sulfate', 'Potassium hydrogen sulfate'}, '-'),
    Rule('b', 'metal', {'316'}, {'Sodium hydrogen sulfate', 'Potassium hydrogen sulfate'}, '0'),
    Rule('b', 'metal', {'Al'}, {'Ferric sulfate'}, '-'),
    Rule('c', 'plast', {'PPS', 'ETFE'}, {'Oleum'}, None),
    Rule('c', 'plast', {'PPS'}, {'Sulfuric acid'}, None, strong(90)),
    Rule('d', 'tight', {'EPDM'}, {'Chlorine gas, wet', 'Chlorine, liquid'}, '-'),
    Rule('d', 'metal', {'304', '316'}, {'Hydrogen chloride gas'}, '0'),
    Rule('d', 'metal', {'CS', 'CI', 'Al'} | COPPER, {'Hydrogen chloride gas'}, '-'),
    Rule('d', 'metal', {'CS', 'CI', 'Al'} | COPPER, {'Sulfur dioxide'}, '0'),
    Rule('d', 'metal', COPPER, {'Chlorine gas, dry', 'Chlorine, liquid'}, '0'),
    Rule('d', 'metal', {'Ni', '400'}, {'Bromine'}, '0'),
    Rule('e', 'plast', {'PP'}, {'Hydrochloric acid', 'Nitric acid'}, '0',
         lambda s: stated(30)(s) and s.temperature >= 60),
    Rule('f', 'metal', {'Ti'}, {'Phosphoric acid'}, '-', lambda s: s.temperature >= 60 and stated(25)(s)),
    Rule('f', 'metal', {'Ti'}, {'Phosphoric acid'}, '0', hot(60)),
    Rule('f', 'metal', {'C-276'}, {'Hydrofluoric acid'}, '-', hot(100)),
    Rule('g', 'metal', {'Al'}, ALKALIS, '-'),
    Rule('g', 'metal', {'Al'}, AMINES, '-', lambda s: s.concentration not in (PURE, GAS)),
    Rule('h', 'tight', {'VMQ'}, {'Sulfuric acid'}, '-', strong(10)),
    Rule('i', 'tight', {'FKM'}, STRONG_ALKALIS, '-', strong(20)),
    Rule('i', 'tight', {'FKM'}, LIQUORS | {'Sodium peroxide'}, '-'),
    Rule('s', 'plast', {'PVDF'}, LIQUORS | {'Sodium peroxide'}, None),
    Rule('s', 'plast', {'PVDF'}, {'Sodium sulfide', 'Trisodium phosphate'}, None, hot(60)),
    Rule('s', 'plast', {'PC'}, {'Trisodium phosphate'}, '0'),
    Rule('j', 'plast', {'PVC', 'CPVC'}, AROMATIC | {'Benzyl alcohol'}, '-'),
    Rule('j', 'tight', {'CSM'}, AROMATIC, '-'),
    Rule('j', 'plast', {'PE-LD', 'PE-HD'}, CHLORINATED, '-'),
    Rule('q', 'plast', {'PA', 'POM'}, HYPOCHLORITES | OXIDISING_CHLORIDES | OXIDISERS, '-'),
    Rule('q', 'plast', {'PA', 'POM'}, CHLORATES, '0'),
    Rule('q', 'plast', {'PC'}, {'Chlorine gas, wet'}, '0'),
    Rule('q', 'plast', {'CPVC'}, {'Perchloric acid'}, '0', lambda s: stated(30)(s) and s.temperature >= 40),
    Rule('j', 'plast', {'PC'}, {'2-Ethoxyethanol'}, '-'),
    Rule('q', 'tight', {'PU'}, HYPOCHLORITES | {'Sodium peroxide'}, '-'),
    Rule('j', 'tight', {'PU'}, {'Ethylene oxide'}, '-'),
    Rule('q', 'misc', {'Carbon'}, CHLORATES | {'Ammonium persulfate', 'Sodium chromate'}, None),
    Rule('k', 'plast', {'PVDF'}, AMINES | KETONES, '-'),
    Rule('l', 'metal', {'Al', '304'}, NEUTRAL_CHLORIDES | {'Sea water'}, '0'),
    Rule('l', 'metal', {'316'}, NEUTRAL_CHLORIDES, '0', lambda s: s.temperature > 20),
    Rule('l', 'metal', {'316'}, {'Sea water'}, '0'),
    Rule('l', 'metal', {'Al', '304', '316'}, SOUR_CHLORIDES, '0'),
    Rule('l', 'metal', {'304', '316', 'Al'}, ACID_CHLORIDES, '-'),
    Rule('l', 'metal', {'2205'}, ACID_CHLORIDES, '0'),
    Rule('l', 'metal', {'304', '316', '2205', '904L', 'Al', 'Alloy20', '825'}, OXIDISING_CHLORIDES | HYPOCHLORITES,
         '-'),
    Rule('e', 'tight', {'TPE'}, {'Nitric acid'}, '0', stated(30)),
    Rule('q', 'tight', {'TPE'}, {'Hydrogen peroxide'}, None, stated(50)),
    Rule('m', 'tight', {'NBR'}, {'Maleic acid'}, '-'),
    Rule('m', 'tight', {'PU'}, {'Ammonium persulfate'}, '-'),
    Rule('n', 'metal', {'Ti'}, {'Hydrochloric acid', 'Sulfuric acid'}, None, strong(5)),
    Rule('n', 'metal', {'Ti'}, FLUORIDE_ACIDS | FLUORIDES | {'Hydrogen fluoride, anhydrous', 'Aluminium chloride',
                                                             'Chlorine gas, dry', 'Chlorine, liquid'}, None),
    Rule('o', 'metal', {'Al'}, {'Nitric acid'}, '-', lambda s: s.percent is None or s.percent < 80),
    Rule('o', 'metal', {'Al'}, {'Iodine', 'Bromine', 'Bromine water', 'Chlorine water'}, '-'),
    Rule('o', 'metal', COPPER | {'400'}, AMMONIUM_SALTS, '0'),
    Rule('o', 'metal', {'400'}, {'Sulfuric acid'}, '0'),
    Rule('n', 'metal', {'Ti'}, {'Nitric acid'}, None, lambda s: bool(s.percent) and s.percent > 70),
    Rule('n', 'metal', {'Ti'}, {'Methanol'}, None, lambda s: s.concentration == PURE),
    Rule('o', 'metal', COPPER, AMINES | {'Ammonia solution', 'Acetylene', 'Mercury', 'Mercuric chloride',
                                         'Hydrogen sulfide', 'Ammonia, anhydrous', 'Ammonium nitrate'}, '-'),
    Rule('o', 'metal', COPPER, HYPOCHLORITES | {'Bromine', 'Bromine water', 'Chlorine water', 'Sodium sulfide',
                                                'Ferric chloride', 'Copper(II) chloride', 'Sulfurous acid'}, '0'),
    Rule('o', 'metal', COPPER | {'400'}, {'Nitric acid'}, '-'),
    Rule('o', 'metal', {'Ni', '400', '600'}, HYPOCHLORITES | OXIDISING_CHLORIDES, '-'),
    Rule('o', 'metal', {'Zr'}, FLUORIDE_ACIDS | FLUORIDES, '-'),
    Rule('o', 'metal', {'Zr'}, {'Ferric chloride', 'Copper(II) chloride', 'Chlorine gas, wet'}, '-'),
    Rule('o', 'metal', {'Ta'}, FLUORIDE_ACIDS | {'Oleum', 'Hydrogen fluoride, anhydrous'}, '-'),
    Rule('o', 'metal', {'Pb'}, STRONG_ALKALIS | {'Acetic acid', 'Formic acid', 'Nitric acid'}, '-'),
    Rule('n', 'metal', {'304'}, {'Sulfuric acid'}, None, lambda s: s.percent is None or 5 <= s.percent < 93),
    Rule('o', 'metal', {'2205', '904L', '825', 'Alloy20', '625'}, {'Hydrochloric acid'}, '0'),
]


def highest(cls, chemical, material, solution):
    """The highest verdict that is let stand ("+", "0", "-" or None for none) and the group of the rule, if any."""
    if cls == 'metal' and chemical == 'Chlorine gas, wet' and material not in ('Ti', 'Ta', 'C-276'):
        return '-', 'd'
    if cls == 'metal' and chemical == 'Oxygen':
        return None, 'n'  # what is safe in oxygen isn't told by a corrosion test
    for rule in RULES:
        if (rule.cls == cls and material in rule.materials and chemical in rule.chemicals and rule.at(solution)):
            return rule.best, rule.group
    return '+', ''
