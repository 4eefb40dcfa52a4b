;; How the lines of ladders are referred to.

;; Asks for the kind of line references (REFNUMS), proposing `format`, under a text; the kind as a number
;; in a text, or nil.
(defun kq_cfg_Lref_setup (format text unused1 unused2 / kind answers)
  (setq kind
    '("line-references"
      ("1" . "line-references-1") ("2" . "line-references-2") ("3" . "line-references-3")
      ("4" . "line-references-4") ("5" . "line-references-5") ("6" . "line-references-6")
      ("7" . "line-references-7") ("8" . "line-references-8") ("9" . "line-references-9")))
  (if (setq answers (ryp-ask "ladder_references" text (list (ryp-value-field "kind" kind format))))
    (ryp-value-of kind format (ryp-answer answers "kind"))))

;; Asks for the values of X-Y or X-zone references, in the order of their settings; as many back, or nil.
(defun kq_cfg_Lxy_setup (unused text values)
  (ryp-ask-values "ladder_grid" text
    '(("grid-x") ("grid-y") ("grid-horizontal") ("grid-vertical") ("grid-first-horizontal")
      ("grid-first-vertical")
      ("grid-order" ("1" . "grid-horizontal-first") ("0" . "grid-vertical-first"))
      ("grid-delimiter"))
    values))
