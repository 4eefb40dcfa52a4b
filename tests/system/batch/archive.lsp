;; Archives: the whole project, then a selection into a file of the user's choice.
(defun show (value)
  (prin1 value)
  (terpri))

(ryv_makeproj_active "pump-station/Pump Station.kqp")
(show (path-name (c:kq_zip_do_kqzip 0)))

(project-write (ryp-active-project)
  '("lines" "01 Cover Sheet.dwg" "01 Cover Sheet.dwg" "..\\01.dwg" "..\\profile\\01.DWG" "missing.dwg"))
(foreach name '("01.dwg" "profile/01.DWG" "pump-station/Pump Station.rypx")
  (close (open name "w")))
(show (path-name (c:kq_zip_do_kqzip 1)))
(show (c:kq_zip_do_kqzip 1))
