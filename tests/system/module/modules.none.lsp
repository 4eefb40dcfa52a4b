(prin1 (list (boundp 'ryv_openproject) (getvar "MENUHOOK") (command "MODULES") (command "RYVNAV")))
(terpri)
