;; Ladder reference blocks in the current document's drawing. Nothing is saved.

(setq ryp-ladder-blocks
  '("KQ_MLRH" "KQ_MLRHX" "KQ_MLRH1" "KQ_MLRH2" "KQ_MLRH6" "KQ_MLRH7" "KQ_MLRH8" "KQ_MLRH9"
    "KQ_MLRV" "KQ_MLRVX" "KQ_MLRV1" "KQ_MLRV2" "KQ_MLRV6" "KQ_MLRV7" "KQ_MLRV8" "KQ_MLRV9"))

;; Brings the sheet of all ladders to that of the drawing's settings, and gives those without a wire format
;; the one of the settings; T, or nil when the drawing has none.
(defun c:kq_upd_ldr_ref ()
  (ryp-with-current-drawing
    '(lambda (drawing / settings count)
       (if (setq settings (ryp-settings drawing))
         (progn
           (setq count
             (ryp-each-ladder drawing '(lambda (drawing) (ryp-refresh-ladder drawing settings))))
           (ryp-tell "ladders-updated" (list (itoa count)))
           T)
         (ryp-tell "no-settings" nil)))))

;; Refreshes the open ladder reference; T when anything was written. A wire format of its own stays.
(defun ryp-refresh-ladder (drawing settings / sheet filled)
  (setq sheet (ryp-held-setting settings "SHEET"))
  (if (= (dwg-get drawing "WIREFMT") "")
    (setq filled (ryp-change-attribute drawing "WIREFMT" (ryp-setting settings "WIREFMT"))))
  (or (if sheet (ryp-change-attribute drawing "SHEET" sheet)) filled))

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
