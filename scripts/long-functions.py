#!/usr/bin/env python3
# Lists the functions of the logic folders (or of the folders given) longer than 60
# lines, longest first: python3 scripts/long-functions.py [FOLDER...]
import glob
import re
import sys

dirs=sys.argv[1:] or ['core','document','results','relative','calculators']
res=[]
for d in dirs:
  for f in sorted(glob.glob(d+'/*.cpp')+glob.glob(d+'/*.h')):
    src=open(f).read()
    # strip comments and strings
    src=re.sub(r'//[^\n]*','',src)
    src=re.sub(r'/\*.*?\*/',lambda m: '\n'*m.group(0).count('\n'),src,flags=re.S)
    src=re.sub(r'"(\\.|[^"\\\n])*"','""',src)
    src=re.sub(r"'(\\.|[^'\\\n])'","''",src)
    stack=[]; stmt=''; line=1
    for ch in src:
        if ch=='\n': line+=1
        if ch=='{':
            s=stmt.strip()
            infn=any(k=='fn' for k,_,_ in stack)
            if not infn and re.match(r'^(template\s*<.*>\s*)?(namespace|class|struct|enum|union|extern)\b',s) :
                stack.append(('c',line,s))
            elif not infn and ')' in s and not re.search(r'=\s*$',s):
                stack.append(('fn',line,s))
            else:
                stack.append(('b',line,s))
            stmt=''
        elif ch=='}':
            if stack:
                k,l0,s=stack.pop()
                if k=='fn' and line-l0+1>60: res.append((line-l0+1,f,l0,' '.join(s.split())[-90:]))
            stmt=''
        elif ch==';': stmt=''
        else: stmt+=ch
for r in sorted(res,reverse=True): print(r)
