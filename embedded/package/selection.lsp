;; Which drawings a command works on.

;; The paths of the drawings that are selected in the project tree. The selection holds for one command,
;; which takes it before anything else, so that it is used up when the command fails.
(defun ryp-take-selection (/ selected)
  (setq selected GBL_SELECTED_DWGS
        GBL_SELECTED_DWGS nil)
  selected)

;; The selected ones among drawings, or all when none is selected.
(defun ryp-chosen-drawings (selected drawings)
  (if selected
    (ryp-drawings-of-paths selected drawings)
    drawings))

;; The drawings of paths, in the order of the paths; those that the project does not hold are named and
;; left out. A path is looked for behind the one before it first, where it mostly is.
(defun ryp-drawings-of-paths (paths drawings / rest found)
  (foreach path paths
    (if (or (setq rest (ryp-from-path path (cdr rest)))
            (setq rest (ryp-from-path path drawings)))
      (setq found (cons (car rest) found))
      (ryp-tell "not-in-project" (list (ryp-shown-path path)))))
  (reverse found))

;; The rest of a list of drawings from the one of a path on; nil when there is none.
(defun ryp-from-path (path drawings)
  (setq path (strcase (path-full path)))
  (while (and drawings (/= (strcase (ryp-field (car drawings) 'path)) path))
    (setq drawings (cdr drawings)))
  drawings)

;; The drawing of a path; nil when the project does not hold it.
(defun ryp-drawing-of-path (path drawings)
  (car (ryp-from-path path drawings)))
