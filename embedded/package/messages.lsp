;; Texts by identifier, so that a site can translate or reword them: "messages.txt", and in front of it the file
;; of the host's language, such as "messages.de.txt".

;; Read once for each document, when the first is asked for.
(defun ryp-messages ()
  (if (null RYP_MESSAGES)
    (setq RYP_MESSAGES
      (cons '("" . "")
        (append
          (ryp-layered-table (strcat "messages." (getvar "LOCALE") ".txt"))
          (ryp-layered-table "messages.txt")))))
  RYP_MESSAGES)

;; The text of a message, with %1, %2 ... replaced by the texts of a list, or nil; `default` when the files
;; have none.
(defun c:kq_msg (id values default)
  (ryp-fill (cond ((cdr (assoc id (ryp-messages)))) (default) (id)) values))

;; A text with %1 to %9 replaced by texts of a list. What a value holds is not looked at again.
(defun ryp-fill (text values / filled at digit value)
  (setq filled "")
  (while (and values (setq at (vl-string-search "%" text)))
    (setq digit (substr text (+ at 2) 1)
          value (if (wcmatch digit "[1-9]") (nth (1- (atoi digit)) values))
          filled (strcat filled (substr text 1 at) (cond (value) ("%")))
          text (substr text (+ at (if value 3 2)))))
  (strcat filled text))

;; The text of one of the package's own messages.
(defun ryp-message (id values)
  (c:kq_msg id values nil))

;; Prints a message on a line of its own; nil.
(defun ryp-tell (id values)
  (ryp-print (ryp-message id values)))
