;; Section and sub-section of drawings.

;; Asks for section and sub-section, proposing the given ones, and writes them to the project's entries of
;; the selected drawings, or of the current document's drawing when none is selected; T, or nil with
;; nothing changed.
(defun c:ryv_proj_dwg_secsub_properties (mode section sub-section / selected project entries chosen answers)
  (setq selected (ryp-take-selection))
  (if (setq project (ryp-project))
    (progn
      (setq entries (ryp-entries (car project) (cdr project))
            chosen (ryp-section-drawings selected (ryp-drawings entries))
            answers (if chosen (ryp-ask-section section sub-section)))
      (if answers
        (ryp-write-entries (car project)
          (mapcar
            '(lambda (entry)
               (if (member entry chosen)
                 (ryp-with-section entry (ryp-answer answers "section") (ryp-answer answers "sub-section"))
                 entry))
            entries))))))

(defun ryp-section-drawings (selected drawings)
  (cond
    (selected (ryp-drawings-of-paths selected drawings))
    ((ryp-document-has-file) (ryp-drawings-of-paths (list (doc-name)) drawings))
    (T (ryp-tell "not-in-project" (list (doc-name))))))

(defun ryp-ask-section (section sub-section)
  (ryp-ask "section" "sections"
    (list
      (ryp-text "section" "section" section)
      (ryp-text "sub-section" "sub-section" sub-section))))

;; An entry with other attribute lines for section and sub-section in front of its remaining ones. The number
;; of "=" at the front of a line says what it is, so that a text cannot begin with one.
(defun ryp-with-section (entry section sub-section)
  (setq section (vl-string-left-trim "=" section)
        sub-section (vl-string-left-trim "=" sub-section))
  (list
    (cons 'lines
      (append
        (if (/= section "") (list (strcat "=" section)))
        (if (/= sub-section "") (list (strcat "==" sub-section)))
        (vl-remove-if 'ryp-names-section (ryp-field entry 'lines))))))

(defun ryp-names-section (line)
  (and (ryp-starts line "=") (not (ryp-starts line "==="))))
