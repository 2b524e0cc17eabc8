# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# CORR-DATA: from tests to verdicts at our concentrations and temperatures.
import glob, os, re
HERE=os.path.dirname(os.path.abspath(__file__))
RANK={'-':0,'0':1,'+':2}
STEPS=[20,40,60,80,100,120,140]
ALIAS={ # environment -> English name here
'Hydrogen Fluoride':'Hydrogen fluoride, anhydrous','Hydrofluosilicic Acid':'Hexafluorosilicic acid','Fluosilicic Acid':'Hexafluorosilicic acid',
'Ammonia':'Ammonia, anhydrous','Ammonium Hydroxide':'Ammonia solution','Sodium Hydrogen Phosphate':'Disodium hydrogen phosphate',
'Sodium Tetraborate':'Sodium borate','Borax':'Sodium borate','Sodium Bicarbonate':'Sodium hydrogen carbonate','Sodium Bisulfate':'Sodium hydrogen sulfate','Sodium Hydrogen Sulfate':'Sodium hydrogen sulfate',
'Sodium Bisulfite':'Sodium hydrogen sulfite','Sodium Dichromate':'Sodium dichromate','Ethyl Alcohol':'Ethanol','Methyl Alcohol':'Methanol','Butyl Alcohol':'1-Butanol','Isopropyl Alcohol':'Isopropanol','Propyl Alcohol':'1-Propanol','Amyl Alcohol':'Amyl alcohol',
'Glycerin':'Glycerol','Glycerine':'Glycerol','Gasoline':'Petrol','Seawater':'Sea water','Sea Water':'Sea water','Alum':'Potassium aluminium sulfate','Aluminum Potassium Sulfate':'Potassium aluminium sulfate','Potassium Aluminum Sulfate':'Potassium aluminium sulfate',
'Mercury Chloride':'Mercuric chloride','Mercuric Chloride':'Mercuric chloride','Cupric Sulfate':'Copper sulfate','Copper Sulfate':'Copper sulfate','Copper Chloride':'Copper(II) chloride','Cupric Chloride':'Copper(II) chloride','Iron Chloride':'Ferric chloride',
'Calcium Bisulfite':'Calcium hydrogen sulfite','Ethyl Ether':'Diethyl ether','Carbon Bisulfide':'Carbon disulfide','Ether':'Diethyl ether','Benzole':'Benzene','Calcium Hypochloride':'Calcium hypochlorite','Fatty Acid':'Fatty acids','Detergent':'Detergent solution','Ethyl Glycol':'2-Ethoxyethanol','Methylene Chloride':'Methylene chloride','Dichloromethane':'Methylene chloride',
'Perchloroethylene':'Perchloroethylene','Tetrachloroethylene':'Perchloroethylene','Furfuraldehyde':'Furfural','Chloroacetic Acid':'Chloroacetic acid','Monochloroacetic Acid':'Chloroacetic acid','Hydrogen Cyanide':'Hydrocyanic acid',
'Benzine':'','Hydrogen Chloride':'Hydrogen chloride gas', 'Chlorine Water':'Chlorine water','Tannin':'Tannic acid','Lead Acetate':'Lead acetate','Tin Chloride':'Stannous chloride','Stannic Chloride':'Stannic chloride','Soap':'Soap solution','Cottonseed Oil':'Cottonseed oil','Lye':'',
'Potassium Bichromate':'Potassium dichromate','Potassium Bisulfate':'Potassium hydrogen sulfate','Potassium Bicarbonate':'Potassium hydrogen carbonate','Sodium Thiosulfate':'Sodium thiosulfate','Hydroxyacetic Acid':'Glycolic acid','Ethylene Dichloride':'Ethylene dichloride','Sulfur Dioxide':'Sulfur dioxide','Sulfurous Acid':'Sulfurous acid',
'Sodium Peroxide':'Sodium peroxide','Phenol':'Phenol','Carbolic Acid':'Phenol','Cresol':'Cresol','Cresylic Acid':'Cresol','Cellosolve':'2-Ethoxyethanol','Mineral Oil':'Mineral oil','Lubricating Oil':'Motor oil','Petroleum':'Crude oil','Petroleum Naphtha':'Naphtha','Paraffin':'Paraffin wax','Petroleum Oil, Crude':'Crude oil',
}
def norm(s):
    s=s.lower().replace('aluminum','aluminium').replace('sulph','sulf').replace('(iii)','').strip()
    return re.sub(r'[^a-z0-9()]+',' ',s).strip()
def load():
    rows=[]
    for f in sorted(glob.glob(HERE+'/part-*.txt')):
        env=None
        for n,l in enumerate(open(f),1):
            l=l.rstrip('\n')
            if not l.strip(): continue
            if l.startswith('@'): env=l[1:].strip(); continue
            p=l.split('|')
            if len(p)!=8: print('BAD',f,n,l); continue
            rows.append((env,)+tuple(x.strip() for x in p)+(f[-5:-4]+':'+str(n),))
    return rows
def rate(t):
    "verdict of a rate or grade; None where it can't be read"
    t=t.strip()
    m=re.match(r'^([ABCD])\b',t)
    if m and not re.search(r'\d',t): return {'A':'+','B':'+','C':'0','D':'-'}[m[1]]
    nums=[float(x) for x in re.findall(r'\d*\.?\d+',t)]
    if not nums or '/' in t: return None
    hi=max(nums)
    if '>' in t or 'min' in t.lower(): return '-' if hi>=0.1 else None   # at least so much
    return '+' if hi<=0.1 else '0' if hi<=1.0 else '-'
ATTACK=re.compile(r'pit|crevice|crack|stress|scc|intergran|selective|local|dezinc|graphit|weld|attack',re.I)
BADCOMMENT=re.compile(r'CHECK|\bbar\b|plus |with |molten|fused|vapor|vapour|pressure|steam|autoclave|mercury cell|diaphragm|activated|passivat|processing|field|plant|spray|immersion, |alternate|ph ?\d|stabili|inhibit|contain|chlorid|saturated with|impur|irradiat|galvanic|nickel|commercial|drops|sulfur content|coat|anod|deposit|weld|sensiti|stress|U-bend|reflux|crude|waste|bleach|tank|column|% ?(h|w)|mixed|mixture|sludge|slurry|paint',re.I)
LOW='-0+'
def lower(v): return {'+':'0','0':'-','-':'-'}[v]

MAT={'CS':'CS','CI':'CI','Brass':'Brass','Bronze':'Bronze','Cu':'Cu','A20':'Alloy20','304':'304','316':'316','Al':'Al','Ti':'Ti','C276':'C-276',
     'Ni':'Ni','400':'400','600':'600','625':'625','825':'825','2205':'2205','904L':'904L','Pb':'Pb','Zr':'Zr','Ta':'Ta'}
# figures whose two units contradict each other, or that belong to a mixture (told by those who copied them)
def doubtful(env,code,mat,rt,conc,temp,ref):
    e=env.lower()
    if e=='sodium hydroxide' and code=='AlBronze' : return True
    if e=='sodium hypochlorite' and code=='Ti' and '0.03' in rt: return True
    if e=='sodium nitrate' and rt.startswith('71.3'): return True
    if e=='sodium silicate' and rt in('125 max','50 max'): return True
    if e=='sodium sulfide' and code=='304' and temp=='171': return True
    if e=='sulfuric acid' and (code,conc,temp) in (('Ni','5','77'),('600','5','80')): return True
    if e=='sulfuric acid' and code=='Cu' and conc=='40' and rt=='0.6 max': return True
    if e=='sulfuric acid' and code=='625' and conc=='10' and temp=='70': return True
    if e=='sulfuric acid' and ref=='212' and code=='A20' and conc in('60','56'): return True
    if e=='sulfuric acid' and ref=='253' and not conc and temp=='Boiling': return True
    if e=='sulfuric acid' and code=='Ti' and ref=='90' and (conc,temp) in(('75','35'),('1','100')): return True
    if e=='sulfuric acid' and code=='Ta' and ('Boiling' in temp or temp=='175'): return True
    return False
BP={'Acetone':56,'Methanol':65,'Ethanol':78,'1-Propanol':97,'Isopropanol':82,'1-Butanol':118,'Benzene':80,'Toluene':111,'Xylene':140,'Carbon tetrachloride':77,'Chloroform':61,'Trichloroethylene':87,'Perchloroethylene':121,'Methylene chloride':40,'Ethylene dichloride':84,'Carbon disulfide':46,'Chlorobenzene':132,'Acetic anhydride':140,'Ethyl acetate':77,'Methyl ethyl ketone':80,'Diethyl ether':35,'Pyridine':115,'Water':100,'Distilled water':100,'Drinking water':100,'Deionised water':100,'Bromine':59,'Butyric acid':163,'Propionic acid':141,'Acetic acid':118,'Formic acid':101,'Turpentine':155,'Furfural':162,'Aniline':184,'Phenol':182,'Hydrogen peroxide':None,'Hydrochloric acid':None}
ACIDBP={'Sulfuric acid':[(10,101),(20,104),(30,108),(40,114),(50,123),(60,140),(70,163)],'Nitric acid':[(10,101),(30,108),(50,117),(70,121)],'Phosphoric acid':[(20,101),(50,108),(70,124),(85,158)],'Hydrochloric acid':[(10,103),(20,109)],'Acetic acid':[(50,102),(80,104),(99,110),(100,118)],'Formic acid':[(50,102),(100,107)],'Sodium hydroxide':[(10,103),(20,108),(30,117),(40,128),(50,142)],'Hydrofluoric acid':[(20,104),(40,112)],'Lactic acid':[(50,104),(85,115)],'Citric acid':[(50,106)],'Oxalic acid':[(50,104)],'Tartaric acid':[(50,106)],'Chloroacetic acid':[(50,106)],'Hydrobromic acid':[(20,105),(48,126)],'Chromic acid':[(20,102),(50,110)]}
SALTSAT={'Calcium chloride':None,'Magnesium chloride':None,'Zinc chloride':None,'Potassium carbonate':None,'Sodium hydroxide':None,'Potassium hydroxide':None,'Ammonium nitrate':None,'Lithium chloride':None,'Sodium nitrate':120,'Ferric chloride':None,'Aluminium chloride':None,'Potassium acetate':None,'Sodium dichromate':None}
def boiling(name,kind,value):
    "(lowest, highest) boiling point of this solution at normal pressure; None where it isn't known"
    if kind=='pure': return (BP[name],BP[name]) if BP.get(name) else None
    if kind=='num':
        if name in ACIDBP:
            t=100
            for c,b in ACIDBP[name]:
                if value<=c: return (100 if value<=10 else t,b)
                t=b
            return None
        if value<=10: return (100,102)
        if value<=30: return (100,110)
        return None
    if kind=='sat':
        if name in SALTSAT: return (100,SALTSAT[name]) if SALTSAT[name] else None
        return (100,118)
    if kind in('dilute','aq'): return (100,102)
    return None
def temps(t,bp):
    "(lowest, highest) temperature in degrees, and whether it was stated; None where it can't be read"
    s=t.strip().lower().replace('up to','0 -').replace('to','-').replace('~','').replace('°','')
    if not s: return (20,20,False)
    if 'min' in s: return None
    s=re.sub(r'\broom( temperature)?\b|ambient','20',s)
    if 'boil' in s:
        if bp is None: return None
        s=re.sub('boiling.*|bp','',s).strip(' -')
        lo=float(s) if re.fullmatch(r'\d+',s) else bp[0]
        return (lo if s else bp[0],bp[1],True) if not s else (float(s),bp[1],True)
    m=[float(x) for x in re.findall(r'\d+\.?\d*',s)]
    if not m or len(m)>2: return None
    return (min(m),max(m),True)
def step_down(t):
    t=20 if 15<=t<=25 else t
    c=[x for x in STEPS if x<=t+2]   # 93, 38 and 66 degrees are round in the other scale
    return max(c) if c else None
def step_up(t):
    t=20 if t<=25 else t
    c=[x for x in STEPS if x>=t-2]
    return min(c) if c else None
