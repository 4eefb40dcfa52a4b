;; Mappings, templates, selections and drawings that cannot be updated.
(defun show (value)
  (prin1 value)
  (terpri))

(ryv_makeproj_active "pump-station/Pump Station.kqp")
(setq project (ryp-active-project))
(show (path-name (kq_proj_figure_kqtitle_fnam project)))

(setq source
  (list '(project "One" "Two, three") '(sheets . "7")
        '(drawing (path . "\\a\\b c.dwg") (section . "S") (sub-section . "") (trace . "A/B") (descriptions "D1"))
        '(settings ("SHEET_" . "12") ("IEC_INST" . "") ("IEC_LOC" . "L") ("WIREFMT" . "%N"))))
(foreach template
    '("{project 1}/{project 2 until ,}" "{project 2 after ,}" "{description 1}{description 2}" "{description x}"
      "={installation}" "=+{location}" "{sheet} of {sheets}" "{section}.{sub-section}" "{file} {subfolder}"
      "{setting wirefmt}" "{unknown}" "plain" "{sheet" "}{sheet}" "")
  (prin1 (list template (ryp-fill-template template source)))
  (terpri))

;; A mapping of the project's own; a drawing that is missing, one that is selected twice, and one from elsewhere.
(setq stream (open "pump-station/Pump Station.kqt" "w"))
(foreach line '("; own" "[frame_a3]" "X={sheet}" "[title_a]" "title1 = No {sheet}" "nothing=x" "broken")
  (write-line line stream))
(close stream)
(vl-file-delete "pump-station/Control/20 Pump 1 Control.dwg")
(show (path-name (kq_proj_figure_kqtitle_fnam project)))
(setq GBL_SELECTED_DWGS
  (mapcar '(lambda (name) (path-full (strcat "pump-station/" name)))
    '("Power/10 Main Supply.dwg" "01 cover sheet.dwg" "Control/20 Pump 1 Control.dwg" "x.dwg")))
(show (c:kq_tb))
(show GBL_SELECTED_DWGS)

;; The current document: not in the project, then in it. Nothing is saved by itself.
(show (c:ryv_tb_nodlg))
(doc-open "pump-station/Power/Motors/11 Pump Motors.dwg")
(ryp-with-current-drawing
  '(lambda (drawing) (ryp-find-block drawing "TITLE_A") (dwg-set drawing "TITLE1" "old")))
(show (c:ryv_tb_nodlg))
(ryp-with-current-drawing
  '(lambda (drawing) (ryp-find-block drawing "TITLE_A") (show (dwg-get drawing "TITLE1"))))
(show (getvar "DBMOD"))
(doc-close)

;; A drawing without settings is left alone.
(doc-save-as "pump-station/Control/20 Pump 1 Control.dwg")
(setq GBL_SELECTED_DWGS (list (doc-name)))
(show (c:kq_tb))
