(vl-sort (vl-sort-i '("b" "a") '>) '(lambda (a b) (setq a (cons a b)) T))
