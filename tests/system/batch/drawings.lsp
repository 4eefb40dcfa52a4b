;; Lists the drawings with their settings and brings their title blocks up to date, after spoiling them. The
;; settings go to a file as well, which another program compares with the drawings.
(defun show (value)
  (prin1 value)
  (terpri))

(ryv_makeproj_active "pump-station/Pump Station.kqp")
(setq folder (path-full "pump-station")
      stream (open "settings.txt" "w"))

(defun spoil (drawing)
  (ryp-each-reference drawing "TITLE_A"
    '(lambda (drawing)
       (foreach attribute (dwg-attributes drawing)
         (dwg-set drawing (car attribute) (strcat "old " (car attribute))))))
  (dwg-save drawing))

(foreach drawing (ryp-project-drawings (ryp-project))
  (setq path (ryp-field drawing 'path)
        settings (ryp-settings-of-file path))
  (write-line (strcat "drawing=" (ryp-slashes (path-relative folder path))) stream)
  (foreach setting settings
    (write-line (strcat (car setting) "=" (cdr setting)) stream))
  (ryp-print
    (strcat (path-name path) ": " (itoa (length settings)) " settings, "
            (ryp-setting settings "SHEET") " " (ryp-setting settings "SHEETDWGNAME") " "
            (ryp-setting settings "IEC_INST") " " (ryp-setting settings "WIREFMT")))
  (ryp-with-drawing path 'spoil))
(close stream)

(show (c:kq_tb))
(show (c:kq_tb))
