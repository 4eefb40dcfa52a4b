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
      "{setting wirefmt}" "{setting none}" "No {project 3}{section}" "No {project 3 after x}"
      "{unknown}" "plain" "{sheet" "}{sheet}" "")
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

;; One from elsewhere is not up to date. What a template says nothing about keeps its text.
(defun title (text)
  (ryp-with-drawing (path-full "pump-station/01 Cover Sheet.dwg")
    '(lambda (drawing)
       (ryp-find-block drawing "TITLE_A")
       (if text
         (progn (foreach tag '("TITLE1" "TITLE2" "JOB" "REV") (dwg-set drawing tag text)) (dwg-save drawing)))
       (mapcar '(lambda (tag) (dwg-get drawing tag)) '("TITLE1" "TITLE2" "JOB" "REV")))))
(title "by hand")
(setq stream (open "pump-station/Pump Station.kqt" "w"))
(foreach line
    '("[TITLE_A]" "TITLE1=No {setting IEC_INST}" "TITLE2={description 9}" "JOB={project 6}"
      "REV={project 9 until ,}")
  (write-line line stream))
(close stream)
(ryp-with-drawing (path-full "pump-station/01 Cover Sheet.dwg")
  '(lambda (drawing) (ryp-find-block drawing "KQ_M") (dwg-set drawing "IEC_INST" "") (dwg-save drawing)))
(setq GBL_SELECTED_DWGS (list (path-full "pump-station/01 Cover Sheet.dwg") (path-full "x.dwg")))
(show (c:kq_tb))
(show (title nil))
(setq stream (open "pump-station/Pump Station.kqt" "w"))
(write-line "[TITLE_A]\nTITLE1=No {sheet}" stream)
(close stream)

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
