;; Looking into drawings.

;; Opens a drawing, calls `work` with its handle and closes it whatever happens; what `work` gave, or nil
;; with the reason printed. (The names of these variables are out of the way of those that `work` uses.)
(defun ryp-with-drawing (path work / opened-drawing)
  (if (setq opened-drawing (dwg-open path))
    (ryp-work-on opened-drawing work)))

;; The same with the drawing of the current document.
(defun ryp-with-current-drawing (work / opened-drawing)
  (if (setq opened-drawing (dwg-current))
    (ryp-work-on opened-drawing work)
    (ryp-tell "no-drawing" nil)))

(defun ryp-work-on (opened-drawing work / outcome)
  (setq outcome (vl-catch-all-apply work (list opened-drawing)))
  (if (vl-catch-all-error-p outcome)
    (progn
      (ryp-print (strcat (path-native (dwg-file opened-drawing)) ": " (vl-catch-all-error-message outcome)))
      (setq outcome nil)))
  (dwg-close opened-drawing)
  outcome)

;; Opens the first reference of a block in any space; T, or nil when there is none.
(defun ryp-find-block (drawing block / spaces found)
  (setq spaces (dwg-spaces drawing))
  (while (and spaces (not found))
    (dwg-space drawing (car spaces))
    (setq found (dwg-first drawing block)
          spaces (cdr spaces)))
  found)

;; The settings in a drawing's block KQ_M: (("RUNGHORV" . "H") ...), names in capitals; nil when it has none.
(defun ryp-settings (drawing)
  (if (ryp-find-block drawing "KQ_M")
    (mapcar
      '(lambda (attribute) (cons (strcase (car attribute)) (cdr attribute)))
      (dwg-attributes drawing))))

;; A setting's value; nil when there is none. The sheet is also found under its other name.
(defun ryp-held-setting (settings name)
  (cond
    ((cdr (assoc name settings)))
    ((if (= name "SHEET") (cdr (assoc "SHEET_" settings))))))

;; The same, empty when there is none.
(defun ryp-setting (settings name)
  (cond ((ryp-held-setting settings name)) ("")))

;; The settings of the drawing of a file; nil when it cannot be read.
(defun ryp-settings-of-file (path)
  (ryp-with-drawing path 'ryp-settings))

;; Calls `work` with the handle for every reference of a block in every space; the reference is open then.
;; The number of calls that did not give nil.
(defun ryp-each-reference (handle block work / calls more)
  (setq calls 0)
  (foreach space (dwg-spaces handle)
    (dwg-space handle space)
    (setq more (dwg-first handle block))
    (while more
      (if (apply work (list handle))
        (setq calls (1+ calls)))
      (setq more (dwg-next handle))))
  calls)

;; Writes an attribute of the open reference when it is there and differs; T when it was written.
(defun ryp-change-attribute (drawing tag value / old)
  (if (and (setq old (dwg-get drawing tag)) (/= old value))
    (dwg-set drawing tag value)))
