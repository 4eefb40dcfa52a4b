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
;; 1, 2 and so on; `label` holds %1 for that number.
(defun ryp-ask-texts (name title label values)
  (ryp-ask-values name title (mapcar '(lambda (value) (list label)) values) values))

;; Lets the user edit several values at once as `kinds` say: (LABEL) is a text, (LABEL . BIT) one bit of a
;; number as yes or no, (LABEL (CODE . TEXT) ...) one of some codes, each under its text. The new values in the
;; same order, or nil; what the user leaves as it is comes back as it was. The fields are named 1, 2 and so on.
(defun ryp-ask-values (name title kinds values / answers)
  (if (setq answers (ryp-ask name title (ryp-value-fields kinds values)))
    (mapcar 'ryp-value-of kinds values (mapcar 'cdr answers))))

(defun ryp-value-fields (kinds values / number fields)
  (setq number 0)
  (foreach value values
    (setq number (1+ number)
          fields (cons (ryp-value-field (itoa number) (car kinds) value) fields)
          kinds (cdr kinds)))
  (reverse fields))

(defun ryp-value-field (number kind value / label)
  (setq label (ryp-message (car kind) (list number))
        value (ryp-shown-value kind value))
  (cond
    ((null (cdr kind)) (ryp-text number label value))
    ((numberp (cdr kind)) (ryp-check number label value))
    (T (ryp-choice number label value
         (mapcar '(lambda (choice) (ryp-message (cdr choice) nil)) (cdr kind))))))

;; What stands for a value in its field. A value that is none of its codes is shown as it is.
(defun ryp-shown-value (kind value / choice)
  (cond
    ((null (cdr kind)) value)
    ((numberp (cdr kind)) (if (= (logand (atoi value) (cdr kind)) 0) "0" "1"))
    ((setq choice (assoc value (cdr kind))) (ryp-message (cdr choice) nil))
    (value)))

;; The value that an answer stands for. The other bits of a number stay.
(defun ryp-value-of (kind value answer)
  (cond
    ((= answer (ryp-shown-value kind value)) value)
    ((null (cdr kind)) answer)
    ((numberp (cdr kind)) (itoa (- (+ (atoi value) (cdr kind)) (* 2 (logand (atoi value) (cdr kind))))))
    ((ryp-code-of (cdr kind) answer))
    (answer)))

(defun ryp-code-of (choices text / code)
  (foreach choice choices
    (if (= text (ryp-message (cdr choice) nil))
      (setq code (car choice))))
  code)
