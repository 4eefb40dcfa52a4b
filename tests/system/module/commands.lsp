;; The commands of the module: what they print and do, without a project and with one.
(load (strcat (getenv "HERE") "/steps.lsp"))
(foreach name '("RYVPROJECTPROPS" "RYVDRAWINGPROPS" "RYVNEWDRAWING" "RYVCONTINUENEWDRAWING"
    "RYVCOMPAREDTOP" "TESTPM" "TESTPM2" "RYNAVCOPYTO")
  (run name))
(setq project (path-full "pump-station/Pump Station.kqp"))
(ryv_openproject project 1)
(foreach name '("_RyvProjectProps" "_TestPM" "TestPM2" "RYNAVCOPYTO")
  (run name))
(prin1 (ryv_getprojectlockstatus project))
(terpri)

;; The palettes are shown and hidden, and one command is another name of the other.
(run "PALETTES")
(foreach name '("RYVNAV" "RYVHIDENAV" "RYVHIDENAV")
  (run name))
(run "PALETTES")
(run "RYPROJECT")
(run "PALETTES")
(run "_ryvnav")
(run '("PALETTE" "Project Manager" "FLOAT" "10,20,300,400"))
(run '("PALETTE" "Project Manager" "CLOSE"))
(run "'RYVNAV")
(run "PALETTES")

;; One that has rolled up rolls out when it is shown.
(foreach line '("PALETTE * ROLLUP ON" "PALETTES" "PALETTE * CLOSE" "RYPROJECT" "PALETTES")
  (run line))

;; Answers: nothing; the properties of the chosen drawing; the package's script at once; the script behind it.
(repeat 4
  (run "TESTMODAL"))
