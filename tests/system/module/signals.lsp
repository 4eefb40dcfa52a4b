;; A locked project, a palette that was moved, a drawing with changes.
(load (strcat (getenv "HERE") "/steps.lsp"))
(ryv_openproject (path-full "pump-station/Pump Station.kqp") 1)
(ryv_virtuallockproject (ryv_getactiveproject) 1)
(command "PALETTES")
(command "PALETTE" "*" "DOCK" dock)
(dwg-insert (dwg-current) "KQ_M" (findfile "KQ_M.dwg") '(0 0) 1 0)
(pass-to "begun")
