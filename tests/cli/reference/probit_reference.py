"""An independent re-derivation of the results of one line, written from the rules
of the method rather than from Morvane's code: the probit tables computed from the
normal distribution (with the stored departures of the printed tables), the
provisional regression, the cycles of weighted regression on working probits, the
statistics, the estimates with Fieller's limits as Finney gives them, the queries of
the results window, and the tab-separated text of the three tables. It derives the
expected texts of the tests of the results module and of morvane-cli report."""
import math
from statistics import NormalDist
from decimal import Decimal, ROUND_HALF_UP, getcontext
getcontext().prec = 800

N01 = NormalDist()

def rnd(x, places):
    return float(Decimal(repr(x)).quantize(Decimal(1).scaleb(-places), rounding=ROUND_HALF_UP))

# ---- numbers as text ----
def digits15(v):
    s = '%.14e' % v
    neg = s.startswith('-')
    if neg: s = s[1:]
    mant, exp = s.split('e')
    digits = mant.replace('.', '')
    return neg, digits, int(exp)

def plain_from(neg, sig, exp):
    out = '-' if neg else ''
    n = len(sig)
    if exp >= 0:
        if n <= exp + 1:
            out += sig + '0' * (exp + 1 - n)
        else:
            out += sig[:exp + 1] + '.' + sig[exp + 1:]
    else:
        out += '0.' + '0' * (-exp - 1) + sig
    return out

def plain(v):
    if v == 0: return '0'
    if math.isnan(v): return 'NaN'
    neg, d, e = digits15(v)
    sig = d.rstrip('0') or '0'
    n = len(sig)
    expform = (e + 1 > 15) if e >= 0 else ((-e - 1) + n > 15)
    if not expform:
        return plain_from(neg, sig, e)
    out = ('-' if neg else '') + sig[0]
    if n > 1: out += '.' + sig[1:]
    return out + ('E-' if e < 0 else 'E+') + ('%02d' % abs(e))

def plain_decimal(v):
    if v == 0: return '0'
    neg, d, e = digits15(v)
    return plain_from(neg, d.rstrip('0') or '0', e)

def fmt(v, decimals):
    """Format pattern "0.000..." with the given decimals, half away from zero on the
    15-digit decimal value."""
    if v == 0 or not math.isfinite(v):
        return '0' + ('.' + '0' * decimals if decimals else '')
    neg, d, e = digits15(v)
    dec = Decimal(('-' if neg else '') + d[0] + '.' + d[1:] + 'e' + str(e))
    q = dec.quantize(Decimal(1).scaleb(-decimals), rounding=ROUND_HALF_UP)
    s = format(q, 'f')
    if s.startswith('-') and Decimal(s) == 0: s = s[1:]
    return s

def fmt_exp5(v):
    neg, d, e = digits15(v)
    mant = int(d[:5]); exp = e - 4
    if d[5] >= '5':
        mant += 1
        if mant == 100000: mant = 10000; exp += 1
    return ('-' if neg else '') + '%05d' % mant + ('E-' if exp < 0 else 'E+') + str(abs(exp))

def num(t):
    return float(t)

def log10(x):
    return math.log(x) / math.log(10)

# ---- probit tables from their rules ----
T = [0.0] * 100
for k in range(1, 100): T[k] = rnd(5 + N01.inv_cdf(k / 100), 4)
L = [0.0] * 11
for k in range(1, 11): L[k] = rnd(5 + N01.inv_cdf(k / 1000), 4)
H = [0.0] * 11
for k in range(0, 10): H[k] = rnd(5 + N01.inv_cdf((99 + k / 10) / 100), 4)
E = [0.0] * 81; MIN = [0.0] * 81; RNG = [0.0] * 81; W = [0.0] * 81
for i in range(1, 80):
    y = float(Decimal(1) + Decimal(i) / 10)
    E[i] = y
    P = N01.cdf(y - 5); Q = 1 - P; Z = N01.pdf(y - 5)
    MIN[i] = rnd(y - P / Z, 4)
    RNG[i] = rnd(1 / Z, 4)
    W[i] = rnd(Z * Z / (P * Q), 5)
for y, v in [(6.6, -2.9214), (6.7, -3.4488), (7.1, -15.2295), (8.1, -297.7119), (8.2, -410.9593),
             (8.5, -1137.1251), (8.6, -1625.3886), (8.7, -2345.2042), (8.8, -3416.2319), (8.9, -5024.6981)]:
    MIN[round((y - 1) * 10)] = v
for ys, v in [((1.1, 8.9), 5033.8402), ((1.2, 8.8), 3425.2797), ((1.3, 8.7), 2354.158), ((1.4, 8.6), 1634.2486),
              ((1.5, 8.5), 1145.8917), ((1.7, 8.3), 580.5282), ((1.8, 8.2), 419.4475), ((1.9, 8.1), 306.1081),
              ((2.0, 8.0), 225.3695)]:
    for y in ys: RNG[round((y - 1) * 10)] = v

class Probit:
    def __init__(self):
        self.reset()
    def reset(self):
        self.text1 = self.text2 = self.text3 = self.text4 = ''
        self.pp = self.ppct = self.wv = self.ww = ''
    def percent_to_probit(self, text):
        if text == self.text1: return self.pp
        self.text1 = text
        if text == '': self.pp = ''; return self.pp
        p = num(text)
        if p > 99.9: self.pp = '9'; return self.pp
        if p < 0.1: self.pp = '1'; return self.pp
        if 1 <= p <= 99:
            for k in range(2, 100):
                if k - 1 <= p <= k:
                    self.pp = plain(T[k] + (T[k - 1] - T[k]) * (p - k) / ((k - 1) - k))
            return self.pp
        if p < 1:
            x = p * 10
            for k in range(1, 11):
                if k - 1 <= x <= k:
                    self.pp = plain(L[k] + (L[k - 1] - L[k]) * (p - k / 10) / ((k - 1) / 10 - k / 10))
        if p > 99:
            x = (p - 99) * 10
            x = num(plain(x)[:4])
            for k in range(0, 10):
                if k - 1 <= x <= k:
                    assert k >= 1
                    self.pp = plain(H[k] + (H[k - 1] - H[k]) * (p - (k / 10 + 99)) / (((k - 1) / 10 + 99) - (k / 10 + 99)))
        return self.pp
    def probit_to_percent(self, text):
        if text == self.text2: return self.ppct
        self.text2 = text
        if text == '': self.ppct = ''; return self.ppct
        y = num(text)
        if y > 8.0902 or y < 1.9096: self.ppct = 'out of scale'; return self.ppct
        v = 0.0
        if 2.6737 <= y <= 7.3263:
            for k in range(2, 100):
                if T[k - 1] <= y <= T[k]:
                    v = k + ((k - 1) - k) * (y - T[k]) / (T[k - 1] - T[k])
        if y < 2.6737:
            for k in range(1, 11):
                if L[k - 1] <= y <= L[k]:
                    v = (k + ((k - 1) - k) * (y - L[k]) / (L[k - 1] - L[k])) / 10
        if y > 7.3263:
            for k in range(1, 11):
                if H[k - 1] <= y <= H[k]:
                    v = (k + ((k - 1) - k) * (y - H[k]) / (H[k - 1] - H[k])) / 10 + 99
        self.ppct = plain_decimal(v)[:7]
        return self.ppct
    def _run_working(self):
        Y = num(self.text3) if self.text3 else 0.0
        p = num(self.text4) if self.text4 else 0.0
        M = R = Wt = 0.0
        for i in range(1, 80):
            if E[i] <= Y < E[i + 1]:
                f = (Y - E[i + 1]) / (E[i] - E[i + 1])
                M = MIN[i + 1] + (MIN[i] - MIN[i + 1]) * f
                R = RNG[i + 1] + (RNG[i] - RNG[i + 1]) * f
                Wt = W[i + 1] + (W[i] - W[i + 1]) * f
        self.wv = plain((p / 100 * R) + M)
        self.ww = plain(Wt)
        if self.wv == '0': self.wv = ''
        if self.ww == '0': self.ww = ''
    def set_expected(self, text):
        if text == self.text3: return
        self.text3 = text
        self._run_working()
    def set_response(self, text):
        if text == self.text4: return
        self.text4 = text
        if text == '': return
        v = num(text)
        if v == 0: self.text4 = ''
        elif v <= 100: self.text4 = plain(v)
        else: self.text4 = '100'
        if self.text3 != '': self._run_working()

# ---- t, chi-square, r tables ----
TROWS = {1: (6.314, 12.706, 63.657), 2: (2.92, 4.303, 9.925), 3: (2.353, 3.182, 5.841), 4: (2.132, 2.776, 4.604),
 5: (2.015, 2.571, 4.032), 6: (1.943, 2.447, 3.707), 7: (1.895, 2.365, 3.499), 8: (1.86, 2.306, 3.355),
 9: (1.833, 2.262, 3.25), 10: (1.812, 2.228, 3.169), 11: (1.796, 2.201, 3.106), 12: (1.782, 2.179, 3.055),
 13: (1.771, 2.16, 3.012), 14: (1.761, 2.145, 2.977), 15: (1.753, 2.131, 2.947), 16: (1.746, 2.12, 2.921),
 17: (1.74, 2.11, 2.898), 18: (1.734, 2.101, 2.878), 19: (1.729, 2.093, 2.861), 20: (1.725, 2.086, 2.845),
 21: (1.721, 2.08, 2.831), 22: (1.717, 2.074, 2.819), 23: (1.714, 2.069, 2.807), 24: (1.711, 2.064, 2.797),
 25: (1.708, 2.06, 2.787), 26: (1.706, 2.056, 2.779), 27: (1.703, 2.052, 2.771), 28: (1.701, 2.048, 2.763),
 29: (1.699, 2.045, 2.756), 30: (1.697, 2.042, 2.75), 35: (1.69, 2.03, 2.724), 40: (1.684, 2.021, 2.704),
 45: (1.68, 2.014, 2.69), 50: (1.676, 2.008, 2.678), 55: (1.673, 2.004, 2.669), 60: (1.671, 2, 2.66),
 70: (1.667, 1.994, 2.648), 80: (1.665, 1.989, 2.638), 90: (1.662, 1.986, 2.631), 100: (1.661, 1.982, 2.625),
 120: (1.658, 1.98, 2.617), 121: (1.6448, 1.96, 2.5758)}
def t_value(df, level):
    n = 121 if df >= 121 else df
    while n not in TROWS: n -= 1
    return float(TROWS[n][level])
CHI = [0, 3.8, 6, 7.8, 9.5, 11.1, 12.6, 14.1, 15.5, 16.9, 18.3, 19.65, 21, 22.35, 23.7, 25, 26.3, 27.6, 28.9,
       30.15, 31.4, 32.65, 33.9, 35.15, 36.4, 37.65, 38.9, 40.1, 41.3, 42.55, 43.8]
CRITR = [0, 0.997, 0.95, 0.878, 0.811, 0.755, 0.707, 0.666, 0.632, 0.602, 0.576, 0.553, 0.532, 0.514, 0.497,
         0.482, 0.468, 0.456, 0.444, 0.433, 0.423, 0.4146, 0.4062, 0.3978, 0.3894, 0.381, 0.3746, 0.3682,
         0.3618, 0.3554, 0.349]

GNOTICE = ("Upper and lower limits will be calculated only for the data of which g is less than 0.4."
           "   See help for more details.")

class Refused(Exception):
    pass

class Line:
    """One calculation, as pressing Calculate does, with the reverse slope accepted."""
    def __init__(self, grid2, paired, talpha, dose_word, unit_word, est_word):
        self.probit = Probit()
        self.dose_word, self.unit_word, self.est_word = dose_word, unit_word, est_word
        self.talpha = talpha
        self.calc(grid2, paired)

    def calc(self, g2, paired):
        last = len(g2[0]) - 1
        col = 4 if paired else 3
        first = 0 if paired else 1
        for r in range(first, len(g2)):
            if g2[r][col][1]:
                raise Refused("Your data contain unacceptable values and can't be calculated\n"
                              "Corrected response percentage more than 99.9% or less than 0.1% cant be calculated.")
        if paired:
            for r in range(1, len(g2)):
                if g2[r][last][0] == '':
                    raise Refused("Morvane detected missing data\nline no. %d which is labeled %s\nhas only control value.\n"
                                  "Please add treated value or remove all the replicates of this point." % (r, g2[r][0][0]))
        c = 0 if paired else 1
        rows = g2[c + 1:]
        n = len(rows)
        scale = 1
        d0 = num(rows[0][0][0])
        while d0 * scale < 1: scale *= 10
        self.scale = scale
        grid1 = []
        Sx = Sy = Sxx = Sxy = 0.0; X = []; Y = []
        for r in rows:
            dose = r[0][0]
            x = num(dose) * scale
            lx = log10(x)
            pr = num(self.probit.percent_to_probit(r[last][0]))
            grid1.append([dose, plain(x), fmt(lx, 4), r[1][0], r[last][0], '', ''])
            Sx += lx; Sy += pr; Sxx += lx * lx; Sxy += lx * pr; X.append(lx); Y.append(pr)
        mx = Sx / n; my = Sy / n
        sdxy = sdx2 = sdy2 = 0.0
        for k in range(n):
            dx = X[k] - mx; dy = Y[k] - my
            sdxy += dx * dy; sdx2 += dx * dx; sdy2 += dy * dy
        if all(v == X[0] for v in X):
            raise Refused("Your data Revealed an illegal slope\nit has an infinite value\nso your data can't be calculated")
        self.r = sdxy / math.pow(sdx2 * sdy2, 0.5)
        D = Sxx - Sx * Sx / n
        b = (Sxy - Sx * Sy / n) / D
        if 0 < b < 0.0001 or -0.0001 < b < 0:
            raise Refused("Your data revealed an extreme flat slope\nit is less than 0.0001\nMorvane can't calculate it")
        if b > 1000 or b < -1000:
            raise Refused("Your data revealed an extreme large slope\nit is more than  1000\nMorvane can't calculate it")
        self.provisional_slope = b
        # cycles
        lastgap = [0.0] * (n + 1)
        counter = 0
        while True:
            moved = False
            sw = snx = snxx = sny = snyy = snxy = 0.0
            for k in range(1, n + 1):
                x = num(grid1[k - 1][2])
                Yk = (x - mx) * b + my
                nn = round(num(grid1[k - 1][3]))  # Python round: halves to even
                self.probit.set_expected(plain(Yk))
                self.probit.set_response(grid1[k - 1][4])
                w = num(self.probit.ww) if self.probit.ww else 0.0
                nw = nn * w
                y = num(self.probit.wv) if self.probit.wv else 0.0
                t = math.sqrt((y - Yk) * (y - Yk))
                d = math.sqrt((t - lastgap[k]) * (t - lastgap[k]))
                if d > 0.000001: moved = True
                lastgap[k] = t
                sw += nw; snx += x * nw; snxx += x * nw * x; sny += y * nw; snyy += y * nw * y; snxy += x * nw * y
            mx = snx / sw; my = sny / sw
            sxx = snxx - snx * snx / sw
            syy = snyy - sny * sny / sw
            sxy = snxy - snx * sny / sw
            b = sxy / sxx
            if moved and counter < 20:
                counter += 1
                continue
            break
        self.cycles = counter + 1
        self.b, self.mx, self.my, self.sxx, self.sw = b, mx, my, sxx, sw
        for k in range(n):
            x = num(grid1[k][2])
            Yk = (x - mx) * b + my
            grid1[k][6] = fmt(Yk, 4)
            grid1[k][5] = self.probit.probit_to_percent(plain(Yk))
        df = n - 2
        self.df = df
        chi = syy - sxy * sxy / sxx
        self.chi = chi
        tab = CHI[min(df, 30)]
        homog = tab > chi
        ratio = chi / df
        h = 1.0 if homog else ratio
        self.h = h
        t = t_value(130, self.talpha) if homog else t_value(df, self.talpha)
        self.t = t
        self.g = (t * t * h) / (b * b * sxx)
        serr = math.sqrt(1 / sxx)
        p = 0.0
        if df <= 30:
            p = num(fmt(self.chi_probability(chi, df), 4))
        g22 = [['Slope', fmt(b, 4), '+/-  ' + fmt(serr, 4)],
               ['', fmt(chi, 4), 'tabulated  ' + plain(tab)],
               ['p', plain(p), ''],
               ['h', fmt(ratio, 4), ''],
               ['g', fmt(self.g, 4), ''],
               ['r', fmt(self.r, 4), 'tabulated  ' + plain(CRITR[df]) if df <= 30 else '']]
        self.chi_red = not homog
        self.g_red = self.g > 0.4
        self.text8 = GNOTICE if self.g > 0.4 else ''
        self.grid1 = grid1
        self.grid22 = g22
        # channel 1: estimates
        self.lower = self.upper = 0.0
        self.log_estimate = 0.0
        g2r = [[self.est_word, '', self.dose_word, 'Lower limit', 'Upper limit'],
               ['', '', self.unit_word, self.unit_word, self.unit_word]]
        for pct in ['25', '50', '75', '90', '95', '99']:
            v = self.estimate(num(pct))
            g2r.append([pct, '', plain(v), '' if self.lower == 0 else plain(self.lower),
                        '' if self.upper == 0 else plain(self.upper)])
            self.dose99 = v
        self.grid2 = g2r
        self.dose1 = self.estimate(1.0)
        self.probit.reset()

    @staticmethod
    def chi_probability(x, m):
        s = math.exp(-x / 2)
        if m % 2 == 1: s = s * math.sqrt(2 * x / 3.14159265358979)
        j = m
        while j >= 2:
            s = x * s / j; j -= 2
        term = s; j = m
        while s * 1E-10 < term:
            term = x * term / (j + 2); j += 2; s = s + term
        return 1 - s

    def estimate(self, pct):
        wv = num(self.probit.percent_to_probit(plain(pct)))
        m = (wv - self.my + self.b * self.mx) / self.b
        self.log_estimate = m
        try:
            wv = math.pow(10, m)
        except OverflowError:
            return 0.0
        wv = wv / self.scale
        wv = num(fmt(wv, 4))
        self.upper = self.lower = 0.0
        if self.g < 0.4: self.limits()
        return wv

    def limits(self):
        m = self.log_estimate; g = self.g; b = self.b
        dist = m - self.mx
        S = math.sqrt(dist * dist / self.sxx + ((1 - g) / self.sw) * self.h)
        E_ = (self.t / ((1 - g) * b)) * S
        c = (g / (1 - g)) * dist + m
        U = c + E_; Lo = c - E_
        if b < 0: U, Lo = Lo, U
        self.upper = num(fmt(math.pow(10, U) / self.scale, 4))
        self.lower = num(fmt(math.pow(10, Lo) / self.scale, 4))

    def response(self, dose):
        x = dose * self.scale
        X = log10(x)
        Y = self.b * X + self.my - self.mx * self.b
        out = self.probit.probit_to_percent(plain(Y))
        if out == 'out of scale': return None
        return num(out)

    # queries as the results window runs them
    def query_percent(self, text):
        v = num(text)
        if v > 99.9 or v < 0.1: return 'This value is out of scale'
        est = self.estimate(v)
        lo = up = ''
        if self.upper + self.lower != 0:
            lo, up = plain(self.lower), plain(self.upper)
        self.grid2.append([plain(v), '', plain(est), lo, up])
        return None

    def query_dose(self, text):
        v = num(text)
        if self.b > 0:
            if v > self.dose99 or v < self.dose1: return 'This value is out of scale'
        elif v < self.dose99 or v > self.dose1:
            return 'False'
        resp = self.response(v)
        if resp is None: return 'This value is out of scale'
        row = [fmt(num(plain(resp)), 2), '', text, '', '']
        self.log_estimate = log10(num(text) * self.scale)
        if self.g < 0.4:
            self.limits()
            row[3], row[4] = plain(self.lower), plain(self.upper)
        self.grid2.append(row)
        return None

    def headings(self):
        s = str(self.scale)
        return [self.dose_word, self.dose_word + ' * ' + s, 'Log (' + self.dose_word + ' * ' + s + ')',
                'Treated', 'Observed response %', 'Linear response %', 'Linear probit']

    def text(self):
        out = '\t'.join(self.headings()) + '\n'
        for row in self.grid1: out += '\t'.join(row) + '\n'
        out += '\n\n'
        lines = []
        for r, row in enumerate(self.grid22):
            cells = list(row)
            if r == 1: cells[0] = 'Chi'
            lines.append(''.join(c + '\t' for c in cells))
        out += '\n'.join(lines)
        out += '\n\n\n'
        lines = []
        for row in self.grid2:
            lines.append(row[0] + ''.join(c + '\t' for c in row[1:]))
        out += '\n'.join(lines)
        return out
