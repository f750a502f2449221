AC:PR
VR:Tarvek Translator {version}
DT:02/02/2026
AC:OS
PN:
YC:-99999.0000
XC:-99999.0000
ZC:-99999.0000
