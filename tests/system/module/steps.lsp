;; What the stories have in common.

;; Evaluates calls, and prints each with what it gives.
(defun rows (calls)
  (foreach call calls
    (prin1 call)
    (princ " => ")
    (prin1 (eval call))
    (terpri)))

;; Runs a command with its words, as one text or as a list of them.
(defun run (words)
  (if (= (type words) 'STR)
    (setq words (string-split words " ")))
  (princ (strcat "> " (ryp-join words " ") "\n"))
  (apply 'command words))

;; Two processes take turns: a file tells whose turn it is.
(defun pass-to (turn)
  (close (open turn "w")))
(defun wait-for (turn)
  (while (not (file-exists turn))))
