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

;; The text of a template; nil when it has places and nothing that they name is there. A template all of
;; whose places are empty is empty, so that no lonely "=" or "+" is left.
(defun ryp-fill-template (template source / text at end value places there filled)
  (setq text "")
  (while (and (setq at (vl-string-search "{" template)) (setq end (vl-string-search "}" template at)))
    (setq value (ryp-place (substr template (+ at 2) (- end at 1)) source)
          places T
          there (or there value)
          value (cond (value) (""))
          filled (or filled (/= value ""))
          text (strcat text (substr template 1 at) value)
          template (substr template (+ end 2))))
  (cond
    ((and places (not there)) nil)
    ((and places (not filled)) "")
    ((strcat text template))))

;; The value of a place with what is cut off in front or behind; nil when what it names is not there.
(defun ryp-place (place source)
  (cond
    ((vl-string-search " until " place) (ryp-part-of-place place " until " 'ryp-until source))
    ((vl-string-search " after " place) (ryp-part-of-place place " after " 'ryp-after source))
    (T (ryp-place-value place source))))

(defun ryp-part-of-place (place word cut source / value)
  (if (setq value (ryp-place-value (ryp-until place word) source))
    (ryp-trim (apply cut (list value (ryp-after place word))))))

;; The value of a place; nil when what it names is not there.
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
    ((= name "setting") (ryp-held-setting settings (strcase (cond ((cadr words)) ("")))))
    ((setq name (assoc name ryp-setting-places)) (ryp-held-setting settings (cdr name)))))

;; Places that have names of their own, and the settings that they show.
(setq ryp-setting-places
  '(("sheet" . "SHEET") ("drawing" . "SHEETDWGNAME") ("project-code" . "IEC_PROJ")
    ("installation" . "IEC_INST") ("location" . "IEC_LOC")))

;; The line of a number, counted from 1; nil when there is none.
(defun ryp-line-of (lines number)
  (setq number (if number (atoi number) 0))
  (if (> number 0)
    (nth (1- number) lines)))
