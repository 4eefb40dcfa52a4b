;; Replaceable values: %NAME% in the paths of a project file.

;; The value of a name; nil when it is not known.
(defun ryp-replaceable (name)
  (cond
    ((= name "SL_DIR") GBL_kq_BaseLibs)
    ((= name "KQ_DIR") GBL_KQ_DOCSETKQBASE)
    ((= name "DS_DIR") GBL_KQ_DOCSETBASE)
    ((= name "PF_DIR") GBL_KQ_BASEINSTALL)
    ((cdr (assoc name (ryp-layered-table "replaceable.txt"))))))

;; A text with its %NAME% replaced; capitals count. What is not known stays, and a value is not looked at
;; again.
(defun kq_1_luk4_replaceable_substitution (text / result at end value)
  (setq result "")
  (while (and (setq at (vl-string-search "%" text))
              (setq end (vl-string-search "%" text (1+ at))))
    (setq value (ryp-replaceable (substr text (+ at 2) (- end at 1)))
          result (strcat result (substr text 1 at) (cond (value) ("%")))
          text (substr text (+ (if value end at) 2))))
  (strcat result text))
