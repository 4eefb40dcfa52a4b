;; How the lines of ladders are referred to.

;; Asks for the kind of line references (REFNUMS), proposing `format`, under a text; the kind as a number
;; in a text, or nil.
(defun kq_cfg_Lref_setup (format text unused1 unused2 / answers)
  (setq answers
    (ryp-ask "ladder_references" text
      (list (ryp-choice "kind" "line-references" format '("1" "2" "3" "4" "5" "6" "7" "8" "9")))))
  (if answers
    (ryp-answer answers "kind")))

;; Asks for the values of X-Y or X-zone references, in the order of their settings; as many back, or nil.
(defun kq_cfg_Lxy_setup (unused text values)
  (ryp-ask-texts "ladder_grid" text
    '("grid-x" "grid-y" "grid-horizontal" "grid-vertical" "grid-first-horizontal" "grid-first-vertical"
      "grid-order" "grid-delimiter")
    values))
