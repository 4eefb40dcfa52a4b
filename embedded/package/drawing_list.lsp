;; The drawing list report: a CSV file beside the project, with a line for each drawing.

(setq ryp-list-columns
  '("list-sheet" "list-drawing" "list-section" "list-sub-section" "list-description-1" "list-description-2"
    "list-description-3" "list-installation" "list-location" "list-subfolder" "list-reference" "list-file"))

;; Reports the selected drawings, or all drawings of the project; the path of the report, or nil.
(defun c:kq_dwglst_proj (/ selected project)
  (setq selected (ryp-take-selection))
  (if (setq project (ryp-project))
    (ryp-report-drawings (car project) (ryp-chosen-drawings selected (ryp-project-drawings project)))))

(defun ryp-report-drawings (path drawings / file lines)
  (setq file (ryp-beside-project path "_drawings.csv")
        lines (cons (ryp-csv-line (ryp-list-headings))
                    (mapcar '(lambda (drawing) (ryp-csv-line (ryp-list-row drawing (path-folder path))))
                            drawings)))
  (foreach line lines
    (ryp-print line))
  (if (ryp-write-lines file lines "\r\n")
    (progn
      (ryp-tell "list-written" (list (path-native file)))
      file)))

(defun ryp-list-headings ()
  (mapcar '(lambda (column) (ryp-message column nil)) ryp-list-columns))

;; What the report says about a drawing. When its file cannot be read, what stands in the project remains.
(defun ryp-list-row (drawing folder / settings path)
  (setq settings (ryp-settings-of-file (ryp-field drawing 'path))
        path (ryp-field drawing 'path))
  (append
    (list (ryp-setting settings "SHEET") (ryp-setting settings "SHEETDWGNAME")
          (ryp-text-field drawing 'section) (ryp-text-field drawing 'sub-section))
    (ryp-take (ryp-field drawing 'descriptions) 3)
    (list (ryp-setting settings "IEC_INST") (ryp-setting settings "IEC_LOC") (ryp-field drawing 'trace)
          (if (ryp-field drawing 'reference) "1" "")
          (ryp-slashes (cond ((path-relative folder path)) (path))))))

(defun ryp-csv-line (values)
  (ryp-join (mapcar 'ryp-csv-value values) ","))

;; A value in quotes, its own doubled, when it holds anything that would end it, or blanks at an end.
(defun ryp-csv-value (text)
  (if (or (wcmatch text "*`,*,*\"*,*\n*,*\r*") (/= text (ryp-trim text)))
    (strcat "\"" (ryp-replace text "\"" "\"\"") "\"")
    text))
