;; Questions to the user in small forms. A form and its fields have names, by which scripts answer them;
;; titles and labels are identifiers of messages; a text that is none stands for itself.

;; Shows a form; ((NAME . ANSWER) ...), or nil when the user cancels.
(defun ryp-ask (name title fields)
  (form name (ryp-message title nil) fields))

(defun ryp-answer (answers name)
  (cdr (assoc name answers)))

;; Fields of one text, one of several, any of several, and yes or no ("1" or "0").
(defun ryp-text (name label value)
  (list "text" name (ryp-message label nil) value))

(defun ryp-choice (name label value choices)
  (list "choice" name (ryp-message label nil) value choices))

(defun ryp-list (name label choices)
  (list "list" name (ryp-message label nil) nil choices))

(defun ryp-check (name label value)
  (list "check" name (ryp-message label nil) value))

;; Lets the user edit one text; the new one, or nil.
(defun ryp-ask-text (name label value / answers)
  (if (setq answers (ryp-ask name label (list (ryp-text "value" label value))))
    (ryp-answer answers "value")))

;; Lets the user edit several texts at once; the new ones in the same order, or nil. The fields are named
;; 1, 2 and so on; a value without a label has its number for one.
(defun ryp-ask-texts (name title labels values / fields number answers)
  (setq number 0)
  (foreach value values
    (setq number (1+ number)
          fields (cons (ryp-text (itoa number) (cond ((car labels)) ((itoa number))) value) fields)
          labels (cdr labels)))
  (if (setq answers (ryp-ask name title (reverse fields)))
    (mapcar 'cdr answers)))
