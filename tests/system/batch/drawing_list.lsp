;; The report, with texts that need quotes.
(defun show (value)
  (prin1 value)
  (terpri))

(ryv_makeproj_active "pump-station/Pump Station.kqp")
(project-write (ryp-active-project)
  '("lines" "=A,B" "==say \"x\"" "=== blank " "01 Cover Sheet.dwg" "====REF" "=====SUB=power"
    "Power/10 Main Supply.dwg" "missing.dwg" "=====SUB=EMPTY[Empty]"))
(show (path-name (c:kq_dwglst_proj)))
