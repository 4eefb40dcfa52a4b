(defun f (x) (defun f (x) (+ x x)) (mapcar 'f (list x x)))
(f 3)
(defun car (x) x)
(car '(1))
