(foreach name '("PALETTES" "RYVHIDENAV" "PALETTES")
  (command name))
(princ (ryv_getprojectcount))
(terpri)
