;; What the module does when the host tells of something, with another module that listens.
(load (strcat (getenv "HERE") "/steps.lsp"))
(foreach name '("MODULES" "SIBLINGSTATES" "SIBLINGMODEL" "SIBLINGRANGE" "SIBLINGPALETTE")
  (run name))
(princ (list "menu hook" (getvar "MENUHOOK") "catalogue" (getvar "CATALOGCHANGES")))
(terpri)
(ryv_copy_file "pump-station/Pump Station.kqp" "pump-station/B.kqp")
(ryv_openproject (path-full "pump-station/Pump Station.kqp") 1)
(princ (list "catalogue" (getvar "CATALOGCHANGES")))
(terpri)

;; A clean screen hides what is visible, and shows only what it has hidden.
(foreach line '("CLEANSCREENON" "PALETTES" "CLEANSCREENOFF" "PALETTES" "PALETTE * CLOSE"
    "CLEANSCREENON" "SETVAR cleanscreenstate 0" "PALETTES")
  (run line))

;; Drawings that are saved, and one that gets another name.
(doc-open "pump-station/01 Cover Sheet.dwg")
(setq handle (dwg-current))
(dwg-first handle "KQ_M")
(dwg-set handle "WIREFMT" "%N")
(run "QSAVE")
(command "SAVEAS" (path-full "Elsewhere.dwg"))
(command "SAVEAS" (path-full "Elsewhere.dwg"))
(princ (list (path-name (doc-name)) (getvar "DWGNAME")))
(terpri)

;; The link to the other application: what it has changed is taken over when it says that it is done.
(foreach line '("LINKUPDATE" "LINKCOMPLETE" "SIBLINGLINK" "LINKCOMPLETE" "LINKUPDATE" "SIBLINGSTATES" "LINKCOMPLETE"
    "SIBLINGUNLINK" "SIBLINGSTATES" "LINKUPDATE" "LINKCOMPLETE")
  (run line))

;; Another module does not let the active project change, nor the host end.
(run "SIBLINGVETO")
(princ (list (ryv_openproject (path-full "pump-station/B.kqp") 1) (path-name (ryv_getactiveproject))))
(terpri)
(run "QUIT")
(run "SIBLINGALLOW")
(send-string "SIBLINGSTATES\n(princ (list \"active\" (path-name (ryp-active-project))))\nQUIT\n(princ \"not reached\")\n")
