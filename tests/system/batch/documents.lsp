;; What works on the current document's drawing, and values collected from drawings.
(defun show (value)
  (prin1 value)
  (terpri))

(ryv_makeproj_active "pump-station/Pump Station.kqp")
(doc-open "pump-station/Power/Motors/11 Pump Motors.dwg")
(show (list (kq_ped_get_mg_on_dwg 1 "INST") (c:kq_get_locs_on_dwg 1)))
(show (kq_loc_get_locs_or_inst_for_proj "INST" nil))
(show (c:kq_get_locs_for_proj nil))

(defun setting (name value)
  (ryp-with-current-drawing
    '(lambda (drawing)
       (ryp-find-block drawing "KQ_M")
       (if value (dwg-set drawing name value) (dwg-get drawing name)))))

;; Collected values are kept until drawings change.
(setting "IEC_LOC" "NEW")
(show (length (c:kq_get_locs_for_proj nil)))
(c:ryv_update_dwg_lst)
(show (member "NEW" (c:kq_get_locs_for_proj nil)))
(show (list (c:kq_reread_dwg_params) (cdr (assoc "IEC_LOC" GBL_kq_dwg_params))))

(show (kq_cfg_add_lay 0 '("wires" "NEUTRAL" " ")))
(show (kq_cfg_add_lay 1 '("TAGS" "DESC")))
(show (kq_cfg_setup_wlay_doit '(2 ("GROUND" "green" "1.5") nil ("" "red") ("NEUTRAL"))))
(show (kq_cfg_setup_wlay))
(show (setting "WIRELAYS" nil))

;; Ladders follow the sheet; a wire format of their own stays.
(defun ladder (sheet wire-format)
  (ryp-with-current-drawing
    '(lambda (drawing)
       (or (ryp-find-block drawing "KQ_MLRH6")
           (dwg-insert drawing "KQ_MLRH6" (findfile "KQ_MLRH6.dwg") '(0 0) 1 0))
       (if sheet (progn (dwg-set drawing "SHEET" sheet) (dwg-set drawing "WIREFMT" wire-format)))
       (list (dwg-get drawing "SHEET") (dwg-get drawing "WIREFMT")))))
(setting "WIREFMT" "%N")
(foreach wire-format '("%X" "")
  (ladder "old" wire-format)
  (show (list (c:kq_upd_ldr_ref) (ladder nil nil))))
(show (c:kq_upd_ldr_ref))
(show (c:ryv_ladr_update_sheet "11" "12" T))
(show (ladder nil nil))
(show (list (c:kq_9_do_qsave) GBL_QSave_accept (getvar "DBMOD")))

;; Linked terminals: the last path is the database's.
(defun check (names)
  (mapcar 'path-name
    (c:ryv_check_linkterm (mapcar '(lambda (name) (path-full (strcat "pump-station/" name))) names))))
(show (check '("01 Cover Sheet.dwg" "Power/10 Main Supply.dwg" "x.mdb")))
(ryp-with-drawing (path-full "pump-station/Power/10 Main Supply.dwg")
  '(lambda (drawing)
     (dwg-first drawing "KQ_HT1")
     (dwg-add drawing (caar (dwg-attributes drawing)) "LINKTERM" "7" '(0 -2 0))
     (dwg-save drawing)))
(show (check '("01 Cover Sheet.dwg" "Power/10 Main Supply.dwg" "x.mdb")))
(show (mapcar 'path-name (kq_cpyprj_chk4_related_files (ryp-active-project))))
(show (kqupda_chkdwglockstatus (list (doc-name))))
