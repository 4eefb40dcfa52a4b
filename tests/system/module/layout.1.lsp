;; The layout of the palettes is saved and restored, and hidden ones stay hidden when projects are loaded again.
(load (strcat (getenv "HERE") "/steps.lsp"))
(ryv_openproject (path-full "pump-station/Pump Station.kqp") 1)
(foreach line '("PALETTE * DOCK LEFT" "PALETTE * PAGE Preview" "PALETTE * RATIO 0.3" "PALETTE * MINIMIZE BOTTOM" "WSSAVE"
    "PALETTE * FLOAT 1,2,300,400" "PALETTE * PAGE Details" "PALETTE * RATIO 0.9" "PALETTE * RESTORE BOTTOM" "PALETTES"
    "WSLOAD" "PALETTES" "PALETTE * RATIO 0.4" "PALETTE * PAGE none" "PALETTE None CLOSE")
  (run line))
