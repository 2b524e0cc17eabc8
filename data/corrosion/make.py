#!/usr/bin/env python3
# Copyright (c) 2026 The Vemora developers
# SPDX-License-Identifier: MIT
#
# Builds the verdict files anew: what stands, less LM1, the review's rules, CORR-DATA's tests, new chemicals.
import csv, re, sys, glob, collections, os
SRC=sys.argv[1]; OUT=sys.argv[2]; REVIEW=sys.argv[3]
CL={'metal':'Metal','plast':'Plast','tight':'Tight','misc':'Misc'}
T={1:20,2:40,3:60,4:80,5:100,6:120,7:140}; TI={v:k for k,v in T.items()}
chem={int(r['ID']):r for r in csv.DictReader(open(f'{SRC}/chemicals.csv'))}
conc={int(r['ID']):r for r in csv.DictReader(open(f'{SRC}/concentrations.csv'))}
byEN={r['NameEN']:i for i,r in chem.items()}
concEN={r['ConcentrationEN']:i for i,r in conc.items()}
# cells[class][(chem,conc,temp)][key] = [verdict, set(sources)]
cells={c:collections.defaultdict(dict) for c in CL}
order={}
RANK={'-':0,'0':1,'+':2}
lines={}
for c in CL:
    rd=csv.DictReader(open(f'{SRC}/verdicts-{c}.csv'))
    order[c]=[k for k in rd.fieldnames if k not in('ChemID','Chemical','ConcID','Concentration','TempID','Temperature','Source')]
    rows=list(rd); lines[c]=rows
# what each source covers, by lines of one source
cover=collections.defaultdict(set)
for c in CL:
    for r in lines[c]:
        s=r['Source'].split('+')
        if len(s)==1:
            for k in order[c]:
                if r[k]: cover[s[0]].add((c,k))
GONE={('metal',k) for k in()}|{('plast','PEEK'),('plast','ABS'),('tight','NR'),('misc','Ceramic'),('misc','Epoxy')}
lm1_dropped=collections.Counter()
for c in CL:
    for r in lines[c]:
        s=[x for x in r['Source'].split('+') if x!='LM1']
        lm='LM1' in r['Source']
        for k in order[c]:
            if not r[k]: continue
            if lm and not any((c,k) in cover[x] for x in s):
                lm1_dropped[(c,k)]+=1; continue
            own=[x for x in s if (c,k) in cover[x]] or s
            cells[c][(int(r['ChemID']),int(r['ConcID']),int(r['TempID']))][k]=[r[k],set(own)]
if __name__=='__main__':
    print('dropped with LM1',sum(lm1_dropped.values()),dict(lm1_dropped))
    print('cells left',sum(len(v) for c in CL for v in cells[c].values()))
    odd=[(c,key,k,v) for c in CL for key,d in cells[c].items() for k,v in d.items() if not v[1]]
    print(len(odd))

import tests as corr
CE=lambda i: conc[i]['ConcentrationEN']
def num(i):
    m=re.fullmatch(r'(\d+(?:\.\d+)?) % \(w/w\)',CE(i)); return float(m[1]) if m else None
NEWCHEM={}   # English name -> ID, filled by chemicals.py
try:
    import chemicals; NEWCHEM=chemicals.IDS; DEFAULTNEW=chemicals.DEFAULT
    for n,i in NEWCHEM.items(): byEN[n]=i
except ImportError: DEFAULTNEW={}
default={}
for i in chem:
    n=collections.Counter(k[1] for c in CL for k in cells[c] if k[0]==i and k[1] in(1,53,54,55))
    default[i]=n.most_common(1)[0][0] if n else 1
default.update({byEN[n]:d for n,d in DEFAULTNEW.items()})
names={corr.norm(n):i for n,i in byEN.items()}
skipped=collections.Counter(); unmapped=collections.Counter(); nolabel=collections.Counter()
def place(env,comment,ctext,mat):
    "(chemical, concentration, kind, number) or None"
    e=corr.ALIAS.get(env,env); cid=names.get(corr.norm(e)) if e else None
    cm=comment.lower(); ct=ctext.strip().rstrip('%').strip()
    low=ct.lower()
    if env=='Sodium Phosphate': cid=byEN['Disodium hydrogen phosphate'] if 'secondary' in cm else byEN['Trisodium phosphate'] if 'tertiary' in cm else None; comment=''
    if env.startswith('Ammonia'):
        cid=byEN['Ammonia, anhydrous'] if ('anhydrous' in (cm+low+env.lower()) or (not ct and ('dry' in cm or 'gas' in cm or 'liquid' in cm))) else byEN['Ammonia solution'] if ct or 'solution' in cm or 'aqueous' in cm else None
    if env.startswith('Chlorine') and 'Water' not in env and 'Dioxide' not in env:
        w='moist' in cm or 'wet' in cm or 'water' in cm or 'moist' in env.lower() or 'wet' in env.lower()
        cid=byEN['Chlorine, liquid'] if 'liquid' in cm+low else byEN['Chlorine gas, wet'] if w else byEN['Chlorine gas, dry'] if 'dry' in cm+low+env.lower() else None
        if cid: return cid,(53 if cid==byEN['Chlorine, liquid'] else 55),'pure',None
        return None
    if env=='Hydrofluoric Acid' and ('anhydrous' in cm+low or low=='100'): return byEN['Hydrogen fluoride, anhydrous'],default[byEN['Hydrogen fluoride, anhydrous']],'pure',None
    if env=='Water':
        cid=byEN['Drinking water'] if 'tap' in cm or 'potable' in cm else byEN['Distilled water'] if 'distil' in cm else byEN['Sea water'] if 'sea' in cm else None if 'carbonat' in cm or 'chlor' in cm or 'salt' in cm else byEN['Water']
        return (cid,default[cid],'pure',None) if cid else None
    if cid is None:
        unmapped[env]+=1; return None
    gas=default[cid]==55
    if corr.BADCOMMENT.search(comment) or 'fuming' in cm or 'vapor' in low or 'vapour' in low:
        skipped['comment '+comment[:40]]+=1; return None
    name=next(k for k,v in byEN.items() if v==cid)
    if not ct:
        if 'saturated' in cm: return cid,52,'sat',None
        if 'dilute' in cm: return cid,3,'dilute',None
        if 'concentrated' in cm or cm.startswith('conc'): return cid,51,'conc',None
        if ('solution' in cm or 'aqueous' in cm or 'in water' in cm) and default[cid]==1: return cid,2,'aq',None
        if gas:
            if 'moist' in cm or 'wet' in cm or 'water' in cm: skipped['wet gas']+=1; return None
            return cid,55,'pure',None
        if 'dry' in cm and default[cid]==1: skipped['dry salt']+=1; return None
        return cid,default[cid],'pure' if default[cid] in(53,54) else 'none',None
    if low in('saturated','sat'): return cid,52,'sat',None
    if low in('conc','concentrated'): return cid,51,'conc',None
    if low=='dilute': return cid,3,'dilute',None
    if low in('all','all concentrations','0-100','any'): return cid,1 if default[cid]==1 else default[cid],'none',None
    if low in('pure','glacial','anhydrous','100','99','99.5','99.9','99+','99.8') or re.fullmatch(r'99\.\d+',low):
        if gas: return cid,55,'pure',None
        if low=='anhydrous' and default[cid]==1 and cid!=byEN['Acetic acid']: skipped['anhydrous salt']+=1; return None
        if default[cid] in(53,54): return cid,default[cid],'pure',None
        return (cid,53,'pure',None) if re.search('acid|hydr',name.lower()) and 'oxide' not in name.lower() else None
    if gas: skipped['conc of gas']+=1; return None
    m=re.fullmatch(r'~?(\d+(?:\.\d+)?)',low)
    if m:
        x=float(m[1]); lab=f'{x:g} % (w/w)'
        if lab in concEN: return cid,concEN[lab],'num',x
        nolabel[lab]+=1; return None
    m=re.fullmatch(r'(\d+)-(\d+)',low)
    if m:
        lab=f'{m[1]}-{m[2]} % (w/w)'
        if lab in concEN: return cid,concEN[lab],'num',float(m[2])
    nolabel[ctext]+=1; return None
cell_tests=collections.defaultdict(list); used=0
rows=corr.load()
seen=set()
for env,code,mat,rt,att,comment,ct,tt,ref,where in rows:
    key=corr.MAT.get(code)
    if not key: skipped['material '+code]+=1; continue
    if key=='Brass' and re.search('commercial bronze|silicon|aluminum',mat,re.I): skipped['other alloy']+=1; continue
    if corr.doubtful(env,code,mat,rt,ct,tt,ref): skipped['two units contradict']+=1; continue
    v=corr.rate(rt)
    if v is None: skipped['rate']+=1; continue
    if (env,code,mat,rt,att,comment,ct,tt,ref) in seen: skipped['twice']+=1; continue
    seen.add((env,code,mat,rt,att,comment,ct,tt,ref))
    if rt.startswith('B') and not tt: v='0'
    if corr.ATTACK.search(att): v=corr.lower(v)
    p=place(env,comment,ct,mat)
    if p is None: continue
    cid,co,kind,x=p
    nm=next(k for k,i in byEN.items() if i==cid)
    t=corr.temps(tt,corr.boiling(nm,kind,x))
    if t is None: skipped['temperature '+tt]+=1; continue
    lo,hi,stated=t
    step=corr.step_down(hi if hi!=lo else lo) if v=='+' else corr.step_up(hi)
    if v=='+' and 'oil' in tt.lower(): step=corr.step_down(lo)
    if step is None: skipped['off the scale']+=1; continue
    cell_tests[(cid,co,step,key)].append((v,ref,mat,rt,where,stated)); used+=1
nd={}; outliers=[]
for k,l in cell_tests.items():
    worst=min(l,key=lambda a:RANK[a[0]])[0]
    bad=[a for a in l if a[0]==worst]; rest=[a for a in l if a[0]!=worst]
    if len(bad)==1 and len(rest)>=3 and len({a[0] for a in rest})==1:
        outliers.append((k,bad[0],rest[0][0])); worst=rest[0][0]
    nd[k]=worst
full=dict(nd)
for (c,co,t,k),v in nd.items():
    if v=='+':
        for lower in corr.STEPS:
            if lower<t and (c,co,lower,k) not in nd: full[(c,co,lower,k)]='+'
# a worse verdict at a lower temperature holds above it
by=collections.defaultdict(dict)
for (c,co,t,k),v in full.items(): by[(c,co,k)][t]=v
agree=differ=new=0; diff=collections.Counter()
METALS=['304','C-276','Ti','316','Al','CS','CI','Brass','Bronze','Cu','Alloy20','Ni','400','600','625','825','2205','904L','Pb','Zr','Ta']
order['metal']=METALS
for (c,co,k),d in by.items():
    for t,v in d.items():
        cell=cells['metal'][(c,co,TI[t])]
        if k in cell:
            if cell[k][0]==v: agree+=1; cell[k][1].add('ND1')
            else:
                differ+=1; diff[(k,cell[k][0]+v)]+=1
                if RANK[v]<RANK[cell[k][0]]: cell[k]=[v,{'ND1'}]
        else: cell[k]=[v,{'ND1'}]; new+=1
if __name__=='__main__':
    print('rows',len(rows),'used',used,'cells',len(nd),'with lower',len(full),'new',new,'agree',agree,'differ',differ,dict(diff))
    print('unmapped',unmapped.most_common(80)); print('nolabel',nolabel.most_common(40)); print('skipped',skipped.most_common(14))
    print('outliers',len(outliers))
    cnt=collections.defaultdict(set)
    for key,d in cells['metal'].items():
        for k in d: cnt[k].add(key[0])
    print({k:len(v) for k,v in cnt.items()})

# --- new chemicals: the seals of LC3 ---
SEAL={1:'+',2:'0',3:'-',4:'-'}
for n,l in getattr(chemicals,'LC3',{}).items():
    step=100 if n=='Steam' else 20
    for k,g in zip(('FFKM','FKM-ETP','FEPM','FKM','HNBR'),l):
        if g: cells['tight'][(byEN[n],chemicals.DEFAULT[n],TI[step])][k]=[SEAL[g],{'LC3'}]
# --- what is known of the materials: no "+" where it would mislead ---
EN={i:n for n,i in byEN.items()}
reviewed=collections.Counter(); reviewlog=[]; refused={}
CHL_NEUTRAL={'Sodium chloride','Potassium chloride','Barium chloride','Lithium chloride'}
CHL_SOUR={'Magnesium chloride','Calcium chloride','Ammonium chloride'}
CHL_ACID={'Nickel chloride','Zinc chloride','Stannous chloride','Stannic chloride','Aluminium chloride','Ferrous chloride'}
CHL_OX={'Ferric chloride','Copper(II) chloride','Mercuric chloride'}
HYPO={'Sodium hypochlorite','Potassium hypochlorite','Calcium hypochlorite','Hypochlorous acid'}
AMINES={'Methylamine','Dimethylamine','Trimethylamine','Diethylamine','Triethylamine','Ethylenediamine'}
KETONES={'Acetone','Methyl ethyl ketone','Methyl isobutyl ketone','Cyclohexanone','Acetophenone','Diacetone alcohol'}
ALKALI={'Sodium hydroxide','Potassium hydroxide','Barium hydroxide','Calcium hydroxide','Trisodium phosphate','Sodium carbonate','Potassium carbonate','Sodium sulfide','Sodium cyanide','Potassium cyanide','Sodium peroxide','Black liquor','White liquor'}
COPPER={'Cu','Brass','Bronze','400'}
def pct(co): return num(co) if num(co) is not None else 100.0 if co==53 else {39:10,41:96,40:70,50:25,51:90}.get(co)
def cap(c,chemID,co,t,k,v):
    "the highest verdict that is let stand, and by which rule"
    n=EN[chemID]; p=pct(co); m=c=='metal'
    def r(x,why): return (x,why)
    if m and k in('304','316','2205','904L','CS','CI') and n in('Hexafluorosilicic acid','Hydrofluoric acid') and k in('304','316','CI'): return r('-','a')
    if m and n in('Sodium hydrogen sulfate','Potassium hydrogen sulfate'):
        if k in('304','Al','CS','CI'): return r('-','b')
        if k=='316' and t>=60: return r('0','b')
    if c=='plast' and k=='PPS' and n in('Sulfuric acid','Oleum') and (p is None or p>=90 or n=='Oleum'): return r(None,'c')
    if c=='tight' and k=='EPDM' and n in('Chlorine gas, wet','Chlorine, liquid'): return r('-','d')
    if m and n=='Hydrogen chloride gas' and k in('304','316','CS','CI','Al','Cu','Brass','Bronze'): return r('0' if k in('304','316') else '-','d')
    if m and n=='Chlorine gas, wet' and k not in('Ti','Ta','C-276'): return r('-','d')
    if c=='plast' and k=='PP' and n=='Hydrochloric acid' and p and p>=30 and t>=60: return r('0','e')
    if c=='plast' and k=='PP' and n=='Nitric acid' and p and p>=30 and t>=60: return r('0','e')
    if m and k=='Ti' and n=='Phosphoric acid' and t>=60: return r('-' if p and p>=25 else '0','f')
    if m and k=='C-276' and n=='Hydrofluoric acid' and t>=100: return r('-','f')
    if m and k=='Al' and (n in ALKALI or n in AMINES and co not in(53,55)): return r('-','g')
    if c=='tight' and k=='VMQ' and n=='Sulfuric acid' and (p is None or p>=10): return r('-','h')
    if c=='tight' and k=='FKM' and n in('Sodium hydroxide','Potassium hydroxide') and (p is None or p>=20): return r('-','i')
    if c=='plast' and k in('PVC','CPVC') and n in('Benzaldehyde','Benzyl alcohol','Furfural','Acetophenone'): return r('-','j')
    if c=='tight' and k=='CSM' and n in('Benzaldehyde','Furfural','Acetophenone'): return r('-','j')
    if c=='plast' and k in('PE-LD','PE-HD') and n in('Methyl chloride','Methylene chloride','Chloroform','Ethylene dichloride','Ethyl chloride'): return r('-','j')
    if c=='plast' and k=='PVDF' and (n in AMINES or n in KETONES): return r('-','k')
    if m and n in CHL_NEUTRAL|{'Sea water'}:
        if k=='Al': return r('0','l')
        if k=='304': return r('0','l')
        if k=='316' and (t>20 or n=='Sea water'): return r('0','l')
    if m and n in CHL_SOUR:
        if k in('Al','304','316'): return r('0','l')
    if m and n in CHL_ACID and k in('304','316','Al','2205'): return r('-' if k!='2205' else '0','l')
    if m and n in CHL_OX|HYPO and k in('304','316','2205','904L','Al','Alloy20','825'): return r('-','l')
    if c=='tight' and k=='NBR' and n=='Maleic acid': return r('-','m')
    # the same kind, for what the corrosion tests bring in
    if m and k=='Ti' and (n in('Hydrochloric acid','Sulfuric acid') and (p is None or p>=5) or n in('Hydrofluoric acid','Hexafluorosilicic acid','Ammonium fluoride','Hydrogen fluoride, anhydrous','Chlorine gas, dry','Chlorine, liquid') or n=='Nitric acid' and p and p>70 or n=='Methanol' and co==53): return r(None,'n')
    if m and k in COPPER-{'400'} and n in {'Ammonia solution','Acetylene','Mercury','Mercuric chloride','Hydrogen sulfide','Ammonia, anhydrous','Ammonium nitrate'}|AMINES : return r('-','o')
    if m and k in COPPER-{'400'} and n in HYPO|{'Bromine','Bromine water','Chlorine water','Sodium sulfide','Ferric chloride','Copper(II) chloride','Sulfurous acid'}: return r('0','o')
    if m and k in COPPER and n=='Nitric acid': return r('-','o')
    if m and k in('Ni','400','600') and n in HYPO|CHL_OX: return r('-','o')
    if m and k=='Zr' and n in('Hydrofluoric acid','Hexafluorosilicic acid','Ferric chloride','Copper(II) chloride','Chlorine gas, wet'): return r('-','o')
    if m and k=='Ta' and n in('Hydrofluoric acid','Hexafluorosilicic acid','Oleum','Hydrogen fluoride, anhydrous'): return r('-','o')
    if m and k=='Pb' and n in('Acetic acid','Formic acid','Nitric acid','Sodium hydroxide','Potassium hydroxide'): return r('-','o')
    if m and k=='304' and n=='Sulfuric acid' and (p is None or 5<=p<93): return r(None,'n')
    if m and k in('2205','904L','825','Alloy20','625') and n=='Hydrochloric acid': return r('0','o')
    if m and n=='Oxygen': return r(None,'n')
    return r('+','')
for c in CL:
    for key in list(cells[c]):
        for k in list(cells[c][key]):
            v,s=cells[c][key][k]
            if v!='+': continue
            best,why=cap(c,key[0],key[1],T[key[2]],k,v)
            if best=='+': continue
            reviewed[why]+=1; refused[(c,key,k)]=why
            if best is None: del cells[c][key][k]
            else: cells[c][key][k]=[best,s]
# a "+" between a weaker and a stronger solution that are both "-"
between=[]
for c in CL:
    g=collections.defaultdict(dict)
    for (ch,co,ti),d in cells[c].items():
        p=num(co) if num(co) is not None else 100.0 if co==53 else None
        if p is None: continue
        for k,(v,s) in d.items(): g[(ch,ti,k)].setdefault(p,[]).append((co,v))
    for (ch,ti,k),d in g.items():
        ps=sorted(d)
        for i,p in enumerate(ps):
            for co,v in d[p]:
                if v=='+' and any(x[1]=='-' for q in ps[:i] for x in d[q]) and any(x[1]=='-' for q in ps[i+1:] for x in d[q]):
                    between.append((c,(ch,co,ti),k))
for c,key,k in between:
    cells[c][key][k][0]='-'; reviewed['p']+=1; refused[(c,key,k)]='p'
# never better as it gets hotter
lowered=0
for c in CL:
    g=collections.defaultdict(dict)
    for (ch,co,ti),d in cells[c].items():
        for k in d: g[(ch,co,k)][T[ti]]=d[k]
    for d in g.values():
        worst=None
        for t in sorted(d):
            if worst and RANK[d[t][0]]>RANK[worst[0]]: d[t][0]=worst[0]; d[t][1]=set(worst[1]); lowered+=1
            if worst is None or RANK[d[t][0]]<RANK[worst[0]]: worst=d[t]
# holes between two temperatures that have the same verdict
filled=0; series=0
for c in CL:
    g=collections.defaultdict(dict)
    for (ch,co,ti),d in cells[c].items():
        for k in d: g[(ch,co,k)][ti]=d[k]
    for (ch,co,k),d in g.items():
        hit=False
        for ti in range(2,7):
            if ti in d: continue
            below=[x for x in d if x<ti]; above=[x for x in d if x>ti]
            if below and above and d[max(below)][0]==d[min(above)][0]:
                cells[c][(ch,co,ti)][k]=[d[max(below)][0],set(d[max(below)][1])|set(d[min(above)][1])]; filled+=1; hit=True
        series+=hit
# --- weaker "-" below stronger "+": to be looked at ---
look=[]
for c in CL:
    g=collections.defaultdict(dict)
    for (ch,co,ti),d in cells[c].items():
        p=num(co) if num(co) is not None else 100.0 if co==53 else None
        if p is not None:
            for k,(v,s) in d.items(): g[(ch,ti,k)][p]=v
    for (ch,ti,k),d in g.items():
        ps=sorted(d)
        if ti==1 and any(d[a]=='-' and d[b]=='+' for i,a in enumerate(ps) for b in ps[i+1:]): look.append((EN[ch],k,[(p,d[p]) for p in ps]))
cntm=collections.defaultdict(set)
for key,d in cells['metal'].items():
    for k in d: cntm[k].add(key[0])
OLD={'304','C-276','Ti','316','Al','CS','CI','Brass','Bronze','Cu','Alloy20'}
METALS=[k for k in METALS if k in OLD or len(cntm[k])>=20]
order['metal']=METALS
for k in GONE: order[k[0]]=[x for x in order[k[0]] if x!=k[1]]
def write():
    import os
    os.makedirs(OUT,exist_ok=True)
    rows,head,bad=chemicals.rewrite(f'{SRC}/chemicals.csv',None); assert not bad
    with open(f'{OUT}/chemicals.csv','w',newline='') as f:
        w=csv.writer(f,lineterminator='\n'); w.writerow(head)
        for r in rows: w.writerow([r[h] for h in head])
    SE={int(r['ID']):r['NameSE'] for r in rows}
    stat=collections.Counter(); at20=collections.Counter(); twoplus=0
    for c in CL:
        with open(f'{OUT}/verdicts-{c}.csv','w',newline='') as f:
            w=csv.writer(f,lineterminator='\n')
            w.writerow(['ChemID','Chemical','ConcID','Concentration','TempID','Temperature']+order[c]+['Source'])
            for key in sorted(cells[c]):
                d=cells[c][key]
                d={k:v for k,v in d.items() if k in order[c]}
                if not d: continue
                groups=collections.Counter('+'.join(sorted(v[1])) for v in d.values())
                main=groups.most_common(1)[0][0]
                text=main
                for s in sorted(groups):
                    if s!=main: text+='; '+','.join(k for k in order[c] if k in d and '+'.join(sorted(d[k][1]))==s)+': '+s
                w.writerow([key[0],SE[key[0]],key[1],conc[key[1]]['ConcentrationSE'],key[2],f'{T[key[2]]}ºC']+[d[k][0] if k in d else '' for k in order[c]]+[text])
                stat[c]+=len(d); at20[c]+=len(d) if key[2]==1 else 0
                twoplus+=sum(len(v[1])>1 for v in d.values())
    global figures
    figures=dict(all=sum(stat.values()),metal=stat['metal'],plast=stat['plast'],tight=stat['tight'],misc=stat['misc'],at20=sum(at20.values()),m20=at20['metal'],p20=at20['plast'],t20=at20['tight'],o20=at20['misc'],two=twoplus,chem=len(rows))
    print('verdicts',sum(stat.values()),dict(stat),'at 20',sum(at20.values()),dict(at20),'two or more sources',twoplus)
    src=collections.Counter(x for c in CL for d in cells[c].values() for k,v in d.items() if k in order[c] for x in v[1]); figures.update(src); print('by source',src)
if __name__=='__main__':
    print('reviewed',dict(reviewed),'between',[(c,EN[k[0]],CE(k[1]),T[k[2]],m) for c,k,m in between]); print('lowered',lowered,'filled',filled,'series',series)
    print('look',len(look)); 
    for l in look: print('  ',l)
    rv=list(csv.DictReader(open(REVIEW)))
    left=[]
    for r in rv:
        c=next(x for x in CL if r['material'] in order[x])
        v=cells[c].get((byEN[r['chemical']],concEN[r['conc']],TI[int(r['temp'])]),{}).get(r['material'])
        if v and v[0]=='+': left.append((r['chemical'],r['conc'],r['material'],r['temp'],v))
    print('review cells still +:',left)
    cnt=collections.defaultdict(set)
    for c in CL:
        for key,d in cells[c].items():
            for k in d:
                if k in order[c]: cnt[k].add(key[0])
    print('chemicals a material',{k:len(v) for k,v in sorted(cnt.items(),key=lambda a:len(a[1]))})
    print('chemicals without',[n for n,i in byEN.items() if not any(i==k[0] and d for c in CL for k,d in cells[c].items())])
    write()
    # --- materials, sources, review ---
    import shutil
    rows=list(csv.DictReader(open(f'{SRC}/materials.csv'))); head=list(rows[0])
    rows=[r for r in rows if r['Key'] not in('PEEK','ABS','NR','Ceramic','Epoxy')]
    def metal(i,key,se,dse,en,den): return dict(zip(head,['Metal',str(i),key,se,dse,en,den,'','','0','-1']))
    new=[metal(16,'Ni','Nickel','Rent nickel, 200 och 201','Nickel','Commercially pure nickel, 200 and 201'),
     metal(17,'400','Legering 400','Nickel-kopparlegering (Monel), 2.4360','Alloy 400','Nickel-copper alloy (Monel), 2.4360'),
     metal(18,'600','Legering 600','Nickel-kromlegering (Inconel), 2.4816','Alloy 600','Nickel-chromium alloy (Inconel), 2.4816'),
     metal(19,'625','Legering 625','Nickel-krom-molybdenlegering (Inconel), 2.4856','Alloy 625','Nickel-chromium-molybdenum alloy (Inconel), 2.4856'),
     metal(20,'825','Legering 825','Nickel-järn-kromlegering (Incoloy), 2.4858','Alloy 825','Nickel-iron-chromium alloy (Incoloy), 2.4858'),
     metal(21,'2205','Duplex 2205','Rostfritt duplexstål, 1.4462','Duplex 2205','Duplex stainless steel, 1.4462'),
     metal(22,'904L','904L','Höglegerat austenitiskt rostfritt stål, 1.4539','904L','High-alloy austenitic stainless steel, 1.4539'),
     metal(23,'Pb','Bly','Rent bly','Lead','Commercially pure lead'),
     metal(24,'Zr','Zirkonium','Rent zirkonium, 702','Zirconium','Commercially pure zirconium, 702'),
     metal(25,'Ta','Tantal','Ren tantal','Tantalum','Commercially pure tantalum')]
    new=[r for r in new if r['Key'] in order['metal']]
    at=next(i for i,r in enumerate(rows) if r['Class']!='Metal')
    rows[at:at]=new
    with open(f'{OUT}/materials.csv','w',newline='') as f:
        w=csv.writer(f,lineterminator='\n'); w.writerow(head)
        for r in rows: w.writerow([r[h] for h in head])
    shutil.copy(corr.HERE+'/../sources.csv',f'{OUT}/sources.csv')
    for n in('concentrations.csv','temperatures.csv'): shutil.copy(f'{SRC}/{n}',f'{OUT}/{n}')
    WHY={'a':'fluoride acids attack stainless steel and cast iron','b':'an acid salt is an acid','c':'sulfonation','d':'a wet gas is an acid; dry ones are seldom dry','e':'oxidised or cracked when hot','f':'loses its passive film when hot','g':'alkalis dissolve aluminium','h':'silicone rubber is attacked','i':'alkalis attack fluororubber','j':'swells','k':'amines and ketones attack PVDF','l':'chlorides at rest: pitting, stress corrosion','m':'the other concentrations are -','n':'contradicts what is known of the metal','o':'known to attack the metal','p':'between two concentrations that are both -'}
    lines_={}
    for (c,key,k),why in refused.items():
        if k not in order[c]: continue
        g=(key[0],key[1],c,k)
        if g not in lines_ or key[2]<lines_[g][0]: lines_[g]=(key[2],WHY[why])
    for r in rv:
        c=next(x for x in CL if r['material'] in order[x]); g=(byEN[r['chemical']],concEN[r['conc']],c,r['material']); ti=TI[int(r['temp'])]
        if g not in lines_ or ti<lines_[g][0]: lines_[g]=(ti,r['reason'] if r['reason']!='same' else lines_.get(g,(0,'as above'))[1])
    SE={int(r['ID']):r['NameSE'] for r in chemicals.rewrite(f'{SRC}/chemicals.csv',None)[0]}
    thin=[k for k in cnt if len(cnt[k])<20]
    with open(f'{OUT}/review.csv','w',newline='') as f:
        w=csv.writer(f,lineterminator='\n'); w.writerow('Rule,ChemID,Chemical,ConcID,Concentration,TempID,Temperature,Class,Key,Reason'.split(','))
        for (ch,co,c,k),(ti,why) in sorted(lines_.items(),key=lambda a:(a[0][0],a[0][1],list(CL).index(a[0][2]),a[0][3])):
            w.writerow(['not +',ch,SE[ch],co,conc[co]['ConcentrationSE'],ti,f'{T[ti]}ºC',CL[c],k,why])
        for k in thin: w.writerow(['thin','','','','','','',CL[next(c for c in CL if k in order[c])],k,f'{len(cnt[k])} chemicals'])
    print('thin',thin,'review lines',len(lines_))

    import sources_md
    parts=sorted(x[-5] for x in glob.glob(corr.HERE+'/part-*.txt'))
    f={k:(f'{v:,}'.replace(',',' ') if isinstance(v,int) else v) for k,v in figures.items()}
    f.update(mat=len(rows),conc=len(conc),read='a selection' if len(parts)==7 else 'a selection of %d of its %d parts'%(len(parts),7),lm1=sum(lm1_dropped.values()),agree=agree,differ=differ,lowered=lowered,outliers=len(outliers),contra=skipped['two units contradict'],review=len(lines_),between=len(between),look='; '.join(f'{n.lower()} on {k}' for n,k,_ in look) or 'none',filled=filled,series=series,
      thin=('Few verdicts stand behind '+', '.join(f'{k} ({len(cnt[k])} chemicals)' for k in thin)+'.') if thin else 'Every material has verdicts on 20 chemicals or more.')
    sources_md.write(f'{OUT}/SOURCES.md',f'{SRC}/SOURCES.md',f)
