;; Terminal links: terminals of several drawings that belong together carry the same LINKTERM value.

;; Of a list of drawing paths with the path of the project's database behind them: the drawings that hold
;; linked terminals; nil when none does.
(defun c:ryv_check_linkterm (paths)
  (vl-remove-if-not
    '(lambda (path) (ryp-with-drawing path 'ryp-has-linked-terminal))
    (reverse (cdr (reverse paths)))))

(defun ryp-has-linked-terminal (drawing / linked)
  (foreach space (dwg-spaces drawing)
    (dwg-space drawing space)
    (foreach block (dwg-blocks drawing)
      (if (and (null linked) (dwg-first drawing block))
        (setq linked (ryp-linked-reference drawing)))))
  linked)

;; Whether the open reference, or one of those behind it, is a linked terminal.
(defun ryp-linked-reference (drawing / linked more)
  (setq more T)
  (while (and more (null linked))
    (setq linked (not (member (dwg-get drawing "LINKTERM") '(nil "")))
          more (dwg-next drawing)))
  linked)

;; Lets the update of terminal links wait; the links themselves are the project database's.
(defun c:ryv_term_linkterm_update_main (paths)
  (ryp-update-later "terminal links" paths))
