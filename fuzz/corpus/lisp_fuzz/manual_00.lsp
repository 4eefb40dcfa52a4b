(+ 1 (* 2 3))
'c:my-Command
(if "" "true" "false")
never-set
(+ 2147483647 1)
(list 1 1. 1.5 1e3)
"\101 and \U+0042"
(+ 1 ;| not 5 |; 2)
'(1 . 2)
(defun twice (f x) (apply f (list (apply f (list x)))))
(twice '1+ 5)
(twice (lambda (n) (* n n)) 3)
