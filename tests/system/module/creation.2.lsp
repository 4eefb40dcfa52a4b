;; What was made is open again, and the drawings have the settings that they were given.
(load (strcat (getenv "HERE") "/steps.lsp"))
(defun settings-of (name / handle found)
  (setq handle (dwg-open (path-combine (path-folder (ryv_getactiveproject)) name)))
  (dwg-first handle "KQ_M")
  (setq found
    (mapcar '(lambda (tag) (cdr (assoc tag (dwg-attributes handle))))
      '("IEC_PROJ" "IEC_INST" "IEC_LOC" "SHEET" "SHEETDWGNAME" "WIREFMT")))
  (dwg-close handle)
  found)
(run "PALETTES")
(rows '((settings-of "E1.dwg") (settings-of "E2.dwg") (settings-of "E3.dwg")
        (kq_loc_get_locs_or_inst_for_proj "INST" nil)))
