(defun c:x (/ *error* a) (defun *error* (m) (setq seen (list m a))) (setq a '(1)) (car 5))
(vl-catch-all-apply 'c:x)
