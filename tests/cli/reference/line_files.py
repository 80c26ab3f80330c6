"""Line files of the current layout written field by field, the response table built
from their rows by the rules of pooling and Abbott's formula, and the expected
output of `morvane-cli report` derived from them with probit_reference."""
import os, sys
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from probit_reference import *

def key(dose, label):
    return fmt(math.pow(dose, 0.01), 11) + label

def q(s): return '"' + s + '"'

class LineCase:
    def __init__(self, datatype, rows, unit1='mg', unit2='', factor=1, tab=0, combo5='Dose', combo6='LD',
                 text5='', check3=0, alpha='0.05', weighting=0, notes=('', '', '', '')):
        self.datatype, self.rows = datatype, rows  # rows: (label, dose text, first, second)
        self.unit1, self.unit2, self.factor, self.tab = unit1, unit2, factor, tab
        self.combo5, self.combo6, self.text5, self.check3 = combo5, combo6, text5, check3
        self.alpha, self.weighting, self.notes = alpha, weighting, notes

    def words(self):
        if self.tab == 0:
            dose, est = [('Dose', 'LD'), ('Con.', 'LC'), ('Time', 'LT')][self.factor - 1]
            unit = '' if not self.unit1 else self.unit1 + (' / ' + self.unit2 if self.unit2 else '')
            paired = self.factor == 3
        else:
            dose, est, unit, paired = self.combo5, self.combo6, self.text5, self.check3 == 1
        return dose, unit, est, paired

    def grid1_rows(self):
        """Cells of the stored table, in the order of the sort keys."""
        out = []
        for label, dose, a, b in self.rows:
            d = num(dose)
            if self.datatype == 0:
                tot = num(a) + num(b)
                cells = [label, dose, a, b, plain(tot), fmt(num(a) / tot * 100, 3)]
            elif self.datatype == 1:
                cells = [label, dose, a, b, fmt(num(b) / num(a) * 100, 3)]
            else:
                cells = [label, dose, fmt(num(a), 3)]
            cells.append(key(d, label))
            out.append(cells)
        out.sort(key=lambda c: c[-1].lower())
        return out

    def text(self):
        rows = self.grid1_rows()
        cols = [7, 6, 4][self.datatype]
        s = '2,"","","","",""\r\n'
        s += '%d,%d,%s,%s,%d,%s,%s,%s,%d,%s,%d,0\r\n' % (
            self.datatype, self.tab, q(self.unit1), q(self.unit2), self.factor, q(self.combo5),
            q(self.combo6), q(self.text5), self.check3, q(self.alpha), self.weighting)
        s += '%d,%d\r\n' % (len(rows) + 2, cols)
        for r in rows:
            for c in r: s += q(c) + ','
        s += ','.join(q(n) for n in self.notes) + '\r\n'
        return s

    def response_table(self):
        rows = self.grid1_rows()
        dose_word, unit, est, paired = self.words()
        tcol, pcol = [(4, 5), (2, 4), (None, 2)][self.datatype]
        weighting = self.weighting == 1 and self.datatype != 2
        def total(r): return 100.0 if self.datatype == 2 else num(r[tcol])
        if not paired:
            g2 = [[('h', False)] * 4, [('', False)] * 4]
            groups = []
            for r in rows:
                if groups and groups[-1][0] == r[1]: groups[-1][1].append(r)
                else: groups.append((r[1], [r]))
            for dose, rs in groups:
                T = W = R = 0.0
                for r in rs:
                    t = total(r); w = t if weighting else 1
                    R += num(r[pcol]) * w; T += t; W += w
                cells = [(dose, False), (plain(T), False), (fmt(R / W, 3), False), ('', False)]
                if dose == '0': g2[1] = cells
                else: g2.append(cells)
            if g2[1][0][0] == '':
                for i in range(2, len(g2)):
                    v = g2[i][2][0]; g2[i][3] = (v, num(v) < 0.1 or num(v) > 99.9)
            else:
                C = num(g2[1][2][0])
                for i in range(1, len(g2)):
                    v = fmt((num(g2[i][2][0]) - C) / (100 - C) * 100, 3)
                    g2[i][3] = (v, (num(v) < 0.1 or num(v) > 99.9) and i != 1)
            return g2, paired
        doses = []
        for r in rows:
            if not any(num(d) == num(r[1]) for d in doses): doses.append(r[1])
        g2 = [[('h', False)] * 5]
        for d in doses:
            tT = tW = tR = 0.0; cT = cR = 0.0; tWi = cWi = 0; has_t = has_c = False
            for r in rows:
                if num(r[1]) != num(d): continue
                t = total(r); w = t if weighting else 1
                if r[0] == 'T':
                    has_t = True; tT += t; tWi = round(tWi + w); tR += num(r[pcol]) * w
                else:
                    has_c = True; cT += t; cWi = round(cWi + w); cR += num(r[pcol]) * w
            c1 = plain(tT) if has_t else ''
            c2 = fmt(tR / tWi, 3) if has_t else ''
            c3 = fmt(cR / cWi, 3) if has_c else ''
            C = num(c3) if c3 else 0.0
            c4 = ''; red = False
            if c2:
                c4 = fmt((num(c2) - C) / (100 - C) * 100, 3); red = num(c4) < 0.1 or num(c4) > 99.9
            g2.append([(d, False), (c1, False), (c2, False), (c3, False), (c4, red)])
        return g2, paired

    def talpha(self):
        return ['0.10', '0.05', '0.01'].index(self.alpha)

def run_expected(case, args_queries, name):
    """Expected (stdout, stderr, exit) of `report NAME --percent ... --dose ...`."""
    g2, paired = case.response_table()
    dose_word, unit, est, _ = case.words()
    enough = len(g2) >= (4 if paired else 5)
    if not enough:
        return '', "Can't calculate " + name[:-4] + '\n', 1
    try:
        line = Line(g2, paired, case.talpha(), dose_word, unit, est)
    except Refused as e:
        return '', str(e) + '\n', 1
    except ZeroDivisionError:
        return '', ('Morvane stopped the calculation:\nevery dose gives the same probit, so the '
                    'correlation r divides by zero.\nNo results were made.\n'), 1
    err = ''
    for kind, value in args_queries:
        if value == '' or any(ch not in '0123456789,.' for ch in value):
            err += 'invaled value!\n'; continue
        try:
            v = float(value)
        except ValueError:
            err += 'invaled value!\n'; continue
        if ',' in value:
            err += 'invaled value!\n'; continue
        t = plain(v)
        if v == 0:
            err += 'This value is out of scale\n'; continue
        m = line.query_percent(t) if kind == 'p' else line.query_dose(t)
        if m: err += m + '\n'
    return line.text() + '\n', err, 0
