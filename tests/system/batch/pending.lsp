;; Updates that wait: the task file comes with the first and goes with the last.
(defun show (value)
  (prin1 value)
  (terpri))

(setq tasks "pump-station/PUMP STATION_update.mdb")
(defun tell ()
  (show (file-exists tasks))
  (foreach task (ryp-tasks (ryp-active-project))
    (ryp-print (strcat "  " (ryp-shown-task task)))))

(show (c:kq_upd_pending nil))
(ryv_makeproj_active "pump-station/Pump Station.kqp")
(setq GBL_SELECTED_DWGS (list (path-full "pump-station/01 Cover Sheet.dwg")))
(show (list (c:kq_upd_pending nil) GBL_SELECTED_DWGS))
(show (RYMtUpdateComponent)) ; for a drawing without a file
(doc-open "pump-station/01 Cover Sheet.dwg")
(show (RYMtUpdateComponent))
(show (RYMtUpdateComponent))
(show (c:ryv_term_linkterm_update_main
  (list (path-full "pump-station/01 Cover Sheet.dwg") (path-full "pump-station/Power/a=b.dwg"))))
(tell)
(show (c:kq_upd_pending nil)) ; cancelled
(tell)
(show (c:kq_upd_pending nil)) ; one is forgotten
(tell)
(show (c:kq_upd_pending nil)) ; the others are run
(tell)
(show (c:kq_upd_pending nil))

(setq file (open tasks "w"))
(princ "of another program" file)
(close file)
(show (c:kq_upd_pending nil))
(show (RYMtUpdateComponent))
(show (file-exists tasks))
