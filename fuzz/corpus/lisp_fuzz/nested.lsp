(repeat 40 (setq x (list x '(a . "b") 1.5)))
x
