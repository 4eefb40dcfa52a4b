;; What the templates of a title-block mapping stand for. A template is text with places in braces:
;;
;;   {project 1}           a description line of the project
;;   {description 1}       one of the drawing's description lines in the project
;;   {section} {sub-section} {subfolder} {file}     of the drawing in the project
;;   {sheet} {drawing} {project-code} {installation} {location}     from the drawing's settings
;;   {setting WIREFMT}     any of the drawing's settings
;;   {sheets}              how many drawings the project has
;;
;; "{project 2 until ,}" is what stands in front of the first comma, "{project 3 after No.}" what stands
;; behind "No.".

;; What a drawing's templates draw on.
(defun ryp-title-source (content count drawing settings)
  (list
    (cons 'project (ryp-part content "descriptions"))
    (cons 'sheets (itoa count))
    (cons 'drawing drawing)
    (cons 'settings settings)))

;; The text of a template. A template all of whose places are empty is empty, so that no lonely "=" or "+"
;; is left.
(defun ryp-fill-template (template source / text at end value places filled)
  (setq text "")
  (while (and (setq at (vl-string-search "{" template)) (setq end (vl-string-search "}" template at)))
    (setq value (ryp-place (substr template (+ at 2) (- end at 1)) source)
          places T
          filled (or filled (/= value ""))
          text (strcat text (substr template 1 at) value)
          template (substr template (+ end 2))))
  (if (and places (not filled))
    ""
    (strcat text template)))

(defun ryp-place (place source)
  (cond
    ((vl-string-search " until " place)
      (ryp-trim (ryp-until (ryp-place-value (ryp-until place " until ") source) (ryp-after place " until "))))
    ((vl-string-search " after " place)
      (ryp-trim (ryp-after (ryp-place-value (ryp-until place " after ") source) (ryp-after place " after "))))
    (T (ryp-place-value place source))))

;; The value of a place; empty when there is none.
(defun ryp-place-value (place source / words name drawing settings)
  (setq words (ryp-split place " ")
        name (strcase (car words) T)
        drawing (ryp-field source 'drawing)
        settings (ryp-field source 'settings))
  (cond
    ((= name "project") (ryp-line-of (ryp-field source 'project) (cadr words)))
    ((= name "description") (ryp-line-of (ryp-field drawing 'descriptions) (cadr words)))
    ((= name "section") (ryp-field drawing 'section))
    ((= name "sub-section") (ryp-field drawing 'sub-section))
    ((= name "subfolder") (ryp-field drawing 'trace))
    ((= name "file") (path-name (ryp-field drawing 'path)))
    ((= name "sheets") (ryp-field source 'sheets))
    ((= name "setting") (ryp-setting settings (strcase (cond ((cadr words)) ("")))))
    ((setq name (assoc name ryp-setting-places)) (ryp-setting settings (cdr name)))
    ("")))

;; Places that have names of their own, and the settings that they show.
(setq ryp-setting-places
  '(("sheet" . "SHEET") ("drawing" . "SHEETDWGNAME") ("project-code" . "IEC_PROJ")
    ("installation" . "IEC_INST") ("location" . "IEC_LOC")))

;; The line of a number, counted from 1; empty when there is none.
(defun ryp-line-of (lines number)
  (setq number (if number (atoi number) 0))
  (cond
    ((< number 1) "")
    ((nth (1- number) lines))
    ("")))
