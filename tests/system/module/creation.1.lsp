;; New projects and drawings: refused, made, and refused where they are already.
(load (strcat (getenv "HERE") "/steps.lsp"))
(defun lock-state ()
  (princ (strcat "lock: " (itoa (ryv_getprojectlockstatus (ryv_getactiveproject))) "\n")))
(run "RYVNEWDRAWING")
(repeat 2
  (run "RYVNEWPROJECT"))
(repeat 4
  (run "RYVNEWDRAWING")
  (lock-state))
(run "RYVCONTINUENEWDRAWING")
