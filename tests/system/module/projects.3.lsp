(foreach name '("Pump Station" "B" "C")
  (princ (strcat name ": "
    (itoa (ryv_isProjectSameNameAsExisting (path-full (strcat "elsewhere/" name ".kqp")))) "\n")))
(princ (path-name (ryv_getactiveproject)))
(terpri)
