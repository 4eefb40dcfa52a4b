;; Opening, activating, re-reading and closing projects, and what a second run opens again.
(load (strcat (getenv "HERE") "/steps.lsp"))

(setq folder (path-full "pump-station")
      a (strcat folder "\\Pump Station.kqp")
      b (strcat folder "\\B.kqp")
      c (strcat folder "\\C.kqp")
      d (strcat folder "\\Standards\\b.KQP"))
(defun state ()
  (princ (strcat (itoa (ryv_getprojectcount)) " open, active: "
    (cond ((ryv_getactiveproject) (path-name (ryv_getactiveproject))) ("none")) "\n")))
(foreach target (list b c d)
  (ryv_copy_file a target))

(rows '((ryv_getactiveproject) (ryv_isOZMProject) (ryv_rereadproject nil) (ryv_closeproject a)))
(state)
(rows '((ryv_openproject (path-native a) 1) (ryv_openproject a 1)))
(rows '((ryv_closeproject a)))
(state)
(rows '((ryv_openproject b 0) (ryv_openproject c 2)))
(state)
(rows '((ryv_isProjectSameNameAsExisting d) (ryv_isProjectSameNameAsExisting (strcat folder "\\D.kqp"))
        (ryv_openproject d 1)))
(state)

;; The next one becomes active, and behind the last comes the first.
(rows '((ryv_openproject (strcase c) 1)))
(state)
(rows '((ryv_closeproject (path-native c))))
(state)
(rows '((ryv_closeproject a)))
(state)
(rows '((ryv_closeproject b) (ryv_closeproject c) (ryv_openproject a 0) (ryv_closeproject a)))
(state)

;; What was written from outside is read again when that is asked for.
(rows '((ryv_openproject a 0) (ryv_openproject c 1)))
(setq stream (open c "w"))
(write-line "+[39]linked" stream)
(write-line "?[5]%L%F%N" stream)
(close stream)
(rows '((ryv_isOZMProject) (ryv_rereadproject "") (ryv_isOZMProject) (ryv_rereadproject nil)
        (ryv_rereadproject (path-native b)) (ryv_rereadproject d)))
(state)
