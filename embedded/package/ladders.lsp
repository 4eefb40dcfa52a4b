;; Ladder reference blocks in the current document's drawing. Nothing is saved.

(setq ryp-ladder-blocks
  '("KQ_MLRH" "KQ_MLRHX" "KQ_MLRH1" "KQ_MLRH2" "KQ_MLRH6" "KQ_MLRH7" "KQ_MLRH8" "KQ_MLRH9"
    "KQ_MLRV" "KQ_MLRVX" "KQ_MLRV1" "KQ_MLRV2" "KQ_MLRV6" "KQ_MLRV7" "KQ_MLRV8" "KQ_MLRV9"))

;; Brings wire format and sheet of all ladders to those of the drawing's settings; T, or nil when it has
;; none.
(defun c:kq_upd_ldr_ref ()
  (ryp-with-current-drawing
    '(lambda (drawing / settings count)
       (if (setq settings (ryp-settings drawing))
         (progn
           (setq count
             (ryp-each-ladder drawing
               '(lambda (drawing / format-changed)
                  (setq format-changed
                    (ryp-change-attribute drawing "WIREFMT" (ryp-setting settings "WIREFMT")))
                  (or (ryp-change-attribute drawing "SHEET" (ryp-setting settings "SHEET")) format-changed))))
           (ryp-tell "ladders-updated" (list (itoa count)))
           T)
         (ryp-tell "no-settings" nil)))))

;; Brings the sheet of ladders from one value to another; with `all` whatever they hold. T, or nil when
;; there is no drawing.
(defun c:ryv_ladr_update_sheet (old new all)
  (ryp-with-current-drawing
    '(lambda (drawing / count)
       (setq count
         (ryp-each-ladder drawing
           '(lambda (drawing)
              (if (or all (= (dwg-get drawing "SHEET") old))
                (ryp-change-attribute drawing "SHEET" new)))))
       (ryp-tell "ladders-updated" (list (itoa count)))
       T)))

;; Calls `work` for every ladder reference; how many calls did not give nil.
(defun ryp-each-ladder (handle work / total)
  (setq total 0)
  (foreach block ryp-ladder-blocks
    (setq total (+ total (ryp-each-reference handle block work))))
  total)
