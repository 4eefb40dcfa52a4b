;; The drawing section of a project file as a list of entries. An entry is a drawing, an empty subfolder, or,
;; at the end, attributes without a drawing:
;;
;;   ((path . FULLPATH) (section . TEXT) (sub-section . TEXT) (descriptions TEXT ...) (reference . T or nil)
;;    (trace . "A/B") (lines LINE ...))
;;   ((empty . "A/B") (lines LINE ...))
;;   ((lines LINE ...))
;;
;; Section and sub-section are nil for a drawing that has no line for them.
;;
;; "lines" are the entry's lines as they stand in the file, so that entries can be put into another order,
;; or left out, without touching anything else.

(defun ryp-field (entry name)
  (cdr (assoc name entry)))

;; A text of an entry; empty when it has none.
(defun ryp-text-field (entry name)
  (cond ((ryp-field entry name)) ("")))

;; What (project-read) gives, under a name: "descriptions", "misc", "settings" or "lines".
(defun ryp-part (project name)
  (cdr (assoc name project)))

;; All entries of a project, in the order of the file.
(defun ryp-entries (path project / folder pending entries)
  (setq folder (path-folder path))
  (foreach line (ryp-part project "lines")
    (cond
      ((ryp-marks-empty line)
        (setq entries (cons (ryp-empty-entry line) entries)))
      ((ryp-starts line "=")
        (setq pending (cons line pending)))
      (T
        (setq entries (cons (ryp-drawing-entry (reverse pending) line folder) entries)
              pending nil))))
  (reverse
    (if pending
      (cons (list (cons 'lines (reverse pending))) entries)
      entries)))

;; All drawings of a project, given as (PATH . CONTENT).
(defun ryp-project-drawings (project)
  (ryp-drawings (ryp-entries (car project) (cdr project))))

;; The drawings among entries.
(defun ryp-drawings (entries)
  (vl-remove-if-not '(lambda (entry) (assoc 'path entry)) entries))

(defun ryp-marks-empty (line)
  (and (ryp-starts line "=====SUB=") (vl-string-search "[Empty]" line)))

(defun ryp-empty-entry (line)
  (list (cons 'empty (ryp-trace (ryp-until line "[Empty]"))) (list 'lines line)))

;; The trace of a marker line in capitals, without empty names.
(defun ryp-trace (line)
  (ryp-join
    (vl-remove "" (ryp-split (strcase (vl-string-left-trim "= \t" (substr line 10))) "/"))
    "/"))

(defun ryp-drawing-entry (attributes line folder / section sub-section descriptions reference trace)
  (setq trace "")
  (foreach text attributes
    (cond
      ((ryp-starts text "====REF") (setq reference T))
      ((ryp-starts text "=====SUB=") (setq trace (ryp-trace text)))
      ((ryp-starts text "===") (setq descriptions (cons (vl-string-left-trim "=" text) descriptions)))
      ((ryp-starts text "==") (setq sub-section (vl-string-left-trim "=" text)))
      (T (setq section (vl-string-left-trim "=" text)))))
  (list
    (cons 'path (ryp-drawing-path line folder))
    (cons 'section section)
    (cons 'sub-section sub-section)
    (cons 'descriptions (reverse descriptions))
    (cons 'reference reference)
    (cons 'trace trace)
    (cons 'lines (append attributes (list line)))))

(defun ryp-drawing-path (line folder)
  (setq line (ryp-trim line))
  (if (ryp-starts line "\"")
    (setq line (substr line 2)))
  (setq line (ryp-replace line "/" "\\"))
  (cond ((path-combine folder line)) (line)))

;; Writes the entries back, keeping everything else in the file; T, or nil with the reason printed. The
;; project manager is told to read the file again.
(defun ryp-write-entries (path entries)
  (ryp-write-part path
    (cons "lines" (apply 'append (mapcar '(lambda (entry) (ryp-field entry 'lines)) entries)))))

(defun ryp-write-part (path part)
  (if (project-write path part)
    (progn
      (ryp-project-changed path)
      T)))
