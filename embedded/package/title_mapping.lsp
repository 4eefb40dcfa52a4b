;; The title-block mapping: which attribute of which block shows what. A heading names a block, the lines
;; below it are ATTRIBUTE=TEMPLATE:
;;
;;   [TITLE_A]
;;   TITLE1={description 1}
;;   SHEET={sheet}

;; The mapping file of a project: PROJECT.kqt beside it, else "default.kqt" on the search path, else empty.
(defun kq_proj_figure_kqtitle_fnam (project / file)
  (setq file (ryp-beside-project project ".kqt"))
  (cond
    ((file-exists file) file)
    ((findfile "default.kqt"))
    ((file-exists (setq file (path-combine RYP_FOLDER "default.kqt"))) file)
    ("")))

;; ((BLOCK (ATTRIBUTE . TEMPLATE) ...) ...), blocks and attributes in capitals.
(defun ryp-title-mapping (file / mapping entry)
  (foreach line (ryp-lines file)
    (setq line (ryp-trim line))
    (cond
      ((and (ryp-starts line "[") (ryp-ends line "]"))
        (setq mapping (cons (list (strcase (substr line 2 (- (strlen line) 2)))) mapping)))
      ((and mapping (setq entry (ryp-setting-in line)))
        (setq mapping
          (cons (append (car mapping) (list (cons (strcase (car entry)) (cdr entry)))) (cdr mapping))))))
  (reverse mapping))

;; The mapping of a project, or nil with the reason printed.
(defun ryp-mapping-of-project (project / file mapping)
  (setq file (kq_proj_figure_kqtitle_fnam project))
  (cond
    ((= file "") (ryp-tell "no-mapping" nil))
    ((setq mapping (ryp-title-mapping file)) mapping)
    (T (ryp-tell "mapping-empty" (list (path-native file))))))
