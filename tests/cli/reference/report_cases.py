"""The line files of tests/cli/ReportCommandTest.cpp with their queries. Run with the
path of a built morvane-cli: writes the files into a temporary folder, runs the tool
on each and compares its whole output with the expected output derived here.

    python3 tests/cli/reference/report_cases.py build/cli/morvane-cli
"""
import os, shutil, subprocess, sys, tempfile
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from line_files import *

CASES = {}
def case(name, c, queries=()):
    CASES[name] = (c, list(queries))

# Rotenone, total and responded, concentration in mg / L, control at 0.
case('rotenone.mrv', LineCase(1, [('C', '0', '49', '0'), ('T', '2.6', '50', '6'), ('T', '3.8', '48', '16'),
     ('T', '5.1', '46', '24'), ('T', '7.7', '49', '42'), ('T', '10.2', '50', '44')],
     unit1='mg', unit2='L', factor=2, notes=('Rotenone', 'Macrosiphoniella sanborni', '', '')),
     [('p', '50'), ('d', '4')])
# Responded and non responded, two replicates a dose, weighted by their totals, t at 0.01.
case('replicates.mrv', LineCase(0, [('T', '1', '2', '18'), ('T', '1', '1', '9'), ('T', '2', '6', '14'), ('T', '2', '4', '16'),
     ('T', '4', '11', '9'), ('T', '4', '6', '4'), ('T', '8', '16', '4'), ('T', '8', '17', '3')],
     unit1='mg', factor=1, alpha='0.01', weighting=1))
# Response percentage, time in hours, a control with each treatment; the last time
# has no control of its own and is taken uncorrected.
case('paired.mrv', LineCase(2, [('C', '1', '5', ''), ('T', '1', '15', ''), ('T', '1', '17', ''),
     ('C', '2', '4', ''), ('T', '2', '36', ''), ('C', '4', '6', ''), ('T', '4', '60', ''), ('T', '4', '64', ''),
     ('T', '8', '85', '')], unit1='hour', factor=3, alpha='0.10'), [('p', '50'), ('d', '3')])
# A heterogeneous line.
case('heterogeneous.mrv', LineCase(1, [('T', '1', '50', '5'), ('T', '2', '50', '30'), ('T', '4', '50', '18'),
     ('T', '8', '50', '40'), ('T', '16', '50', '38')], unit1='ug', unit2='ml', factor=2))
# g above 0.4: few insects, a shallow line.
case('wide.mrv', LineCase(1, [('T', '1', '10', '3'), ('T', '2', '10', '4'), ('T', '4', '10', '5'),
     ('T', '8', '10', '7')], unit1='mg', factor=1), [('p', '50'), ('d', '3')])
# 33 doses: more than 30 degrees of freedom.
case('many.mrv', LineCase(2, [('T', str(i), plain(3.0 * i), '') for i in range(1, 34)], unit1='mg', factor=1))
# Small doses: DoseScale 1000, custom words.
case('scaled.mrv', LineCase(1, [('T', '0.001', '40', '4'), ('T', '0.002', '40', '12'), ('T', '0.004', '40', '22'),
     ('T', '0.008', '40', '32')], unit1='', factor=1, tab=1, combo5='Temp.', combo6='RD', text5='ppm'),
     [('p', '12.5'), ('d', '0.003')])
# A reverse slope: fewer respond at higher doses.
case('reverse.mrv', LineCase(1, [('T', '1', '50', '45'), ('T', '2', '50', '33'), ('T', '4', '50', '20'),
     ('T', '8', '50', '8')], unit1='mg', factor=1), [('d', '3'), ('d', '20'), ('d', '0.1')])
# Refusals.
case('two.mrv', LineCase(1, [('T', '1', '20', '5'), ('T', '2', '20', '12')], unit1='mg'))
case('hundred.mrv', LineCase(1, [('T', '1', '20', '5'), ('T', '2', '20', '12'), ('T', '4', '20', '20')], unit1='mg'))
case('onlycontrol.mrv', LineCase(2, [('T', '1', '10', ''), ('T', '2', '40', ''), ('C', '4', '5', ''), ('T', '8', '90', '')],
     unit1='hour', factor=3))
case('samedose.mrv', LineCase(1, [('T', '10', '20', '5'), ('T', '10.0', '20', '10'), ('T', '10.00', '20', '15')], unit1='mg'))
case('flat.mrv', LineCase(2, [('T', '1', '50', ''), ('T', '10', '50.001', ''), ('T', '100', '50.002', '')], unit1='mg'))
case('steep.mrv', LineCase(1, [('T', '1', '20', '2'), ('T', '1.0001', '20', '10'), ('T', '1.0002', '20', '18')], unit1='mg'))
case('even.mrv', LineCase(1, [('T', '1', '20', '10'), ('T', '2', '20', '10'), ('T', '4', '20', '10')], unit1='mg'))
case('refusedqueries.mrv', LineCase(1, [('T', '1', '50', '5'), ('T', '2', '50', '15'), ('T', '4', '50', '30'),
     ('T', '8', '50', '42')], unit1='mg', factor=1),
     [('p', '0'), ('p', '100'), ('p', '0.05'), ('p', 'abc'), ('p', '1.2.3'), ('p', '12,5'), ('d', '1e3'), ('d', '0'),
      ('d', '-2'), ('d', '1000'), ('p', '')])

def write_all(folder):
    for name, (c, _) in CASES.items():
        with open(os.path.join(folder, name), 'w', newline='') as f:
            f.write(c.text())

def argv(name, queries):
    a = ['report', name]
    for kind, v in queries:
        a += ['--percent' if kind == 'p' else '--dose', v]
    return a

if __name__ == '__main__':
    folder = tempfile.mkdtemp(prefix='morvane-report-cases-')
    write_all(folder)
    cli = os.path.abspath(sys.argv[1])
    bad = 0
    for name, (c, queries) in CASES.items():
        exp = run_expected(c, queries, name)
        p = subprocess.run([cli] + argv(name, queries), cwd=folder, capture_output=True, text=True)
        got = (p.stdout, p.stderr, p.returncode)
        if got != exp:
            bad += 1
            print('DIFF', name); print(' got', repr(got)[:1500]); print(' exp', repr(exp)[:1500])
        else:
            print('ok', name, exp[2], repr(exp[1][:100]))
    shutil.rmtree(folder)
    print('differences:', bad)
    sys.exit(1 if bad else 0)
