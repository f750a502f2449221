AC:PR
UL:F
VR:Tarvek Translator {version}
DT:02/02/2026
AC:OS
PN:A
YC:39.3700
XC:39.3700
ZC:39.3700
AC:OS
PN:B
