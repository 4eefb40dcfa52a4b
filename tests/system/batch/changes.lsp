;; Sorting, removing, sections and description lines: what the project file holds afterwards.
(defun show (value)
  (prin1 value)
  (terpri))

(setq path (path-full "pump-station/Pump Station.kqp"))
(ryv_makeproj_active path)
(project-write path
  '("lines" "=S" "===ten" "Power\\10 Main Supply.dwg" "Control\\22 Fan and Alarms.dwg" "=====SUB=A[Empty]"
    "=====SUB=B" "===b" "Power\\Motors\\12 Fan and Heater.dwg" "=====SUB=B" "Power\\Motors\\11 Pump Motors.dwg"
    "=OLD" "==SUB" "===cover" "01 Cover Sheet.dwg" "=dropped"))
(defun tell (what value)
  (princ (strcat what ": "))
  (show value)
  (foreach line (ryp-part (project-read path) "lines")
    (ryp-print (strcat "  " line))))

(tell "by sheet" (c:ryv_sort_dlst 1 path nil))
(tell "one level by name, last first" (c:ryv_sort_dlst 1 path '("B")))
(tell "two drawings" (c:ryv_sort_dlst 1 path
  (list (path-full "pump-station/Power/10 Main Supply.dwg") (path-full "pump-station/01 COVER Sheet.dwg"))))
(tell "cancelled" (c:ryv_sort_dlst 1 path nil))
(tell "removed" (c:ryv_proj_multiple_remove 1 path))
(tell "none chosen" (c:ryv_proj_multiple_remove 1 path))
(setq GBL_SELECTED_DWGS (list (path-full "pump-station/01 Cover Sheet.dwg")))
(tell "section" (c:ryv_proj_dwg_secsub_properties 1 "S" "T"))
(tell "section of a drawing from elsewhere" (c:ryv_proj_dwg_secsub_properties 1 "S" "T"))
(setq GBL_SELECTED_DWGS (list (path-full "pump-station/01 Cover Sheet.dwg")))
(tell "sections that begin with =" (c:ryv_proj_dwg_secsub_properties 1 "S" "T"))

(show (c:ryv_proj_edit_proj_description_lines 1 nil nil))
(show (ryp-part (project-read path) "descriptions"))
(show (c:ryv_proj_edit_proj_description_lines nil "New" '("a" "b")))
(show (c:ryv_proj_edit_proj_description_lines nil "New" '("a" "b")))
(defun descriptions ()
  (show (c:ryv_proj_edit_proj_description_lines 1 nil nil))
  (show (ryp-part (project-read path) "descriptions")))
(descriptions) ; cancelled
(descriptions) ; all cleared
(show (length (ryp-part (project-read path) "settings")))
