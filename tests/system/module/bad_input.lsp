;; Every function with wrong arguments: no LISP error, and no file of the project changes.
(setq long "0123456789abcdef")
(repeat 16 (setq long (strcat long long)))
(setq bad (list 7 70000 1.5 nil T '("a" "b") '(("a" . "b"))))

;; The results of a function for lists of arguments, each once.
(defun results (name lists / result found)
  (foreach arguments lists
    (setq result (apply name arguments))
    (if (not (member result found))
      (setq found (cons result found))))
  (reverse found))

;; The list with another element in each place, in turn.
(defun spoilt (good value / place lists)
  (setq place 0)
  (foreach each good
    (setq lists (cons (replaced good place value) lists)
          place (1+ place)))
  lists)
(defun replaced (good place value / index)
  (setq index -1)
  (mapcar '(lambda (each) (if (= (setq index (1+ index)) place) value each)) good))
(defun shorter (good)
  (if good
    (cons (reverse (cdr (reverse good))) (shorter (reverse (cdr (reverse good)))))))

(ryv_openproject (path-full "pump-station/Pump Station.kqp") 1)
(setq none (path-full "none/none.kqp"))
(foreach entry
    (list
      (list 'ryv_openproject none 1) (list 'ryv_virtuallockproject none 0) (list 'ryv_getprojectlockstatus none)
      (list 'ryv_getprojectwholocked none) (list 'ryv_getdwgwholocked none) (list 'ryv_getdwglockstatus none)
      (list 'ryv_closeproject none) (list 'ryv_isProjectSameNameAsExisting none) (list 'ryv_rereadproject none)
      (list 'ryv_croverridedlg '("1" "2" "3")) (list 'ryv_getelecregsetting "None" "none")
      (list 'ryv_taskdialog "RyvPageMan.None" '(("a" "b")))
      (list 'ryv_setelecregsetting "Name" "name" "value") (list 'ryv_updateLastProjectFile none "1")
      (list 'ryv_ensureKQMandattribsexist none)
      (list 'ryv_copy_file "none.dwg" "none/none.dwg") (list 'ryv_delete_file "none/none.dwg"))
  (setq name (car entry)
        good (cdr entry))
  (prin1 name)
  (princ ": types ")
  (prin1 (results name (apply 'append (mapcar '(lambda (value) (spoilt good value)) bad))))
  (princ ", too few ")
  (prin1 (results name (shorter good)))
  (princ ", more ")
  (prin1 (results name (list (append good '("more" nil 7)))))
  (foreach value (list (cons "empty" "") (cons "long" long) (cons "folder" (path-full "pump-station")))
    (princ (strcat ", " (car value) " "))
    (prin1 (results name (spoilt good (cdr value)))))
  (terpri))

;; Those that take none pass over what they are given.
(setq surplus (list nil '(7) (list long) '(("a") T)))
(foreach name '(ryv_loadlastprojects ryv_getactiveproject ryv_isOZMProject ryv_getprojectcount ryv_beginwaitcursor
    ryv_endwaitcursor)
  (prin1 (list name (results name surplus)))
  (terpri))
(prin1 (list 'ryv_circ_tempfile (mapcar 'type (results 'ryv_circ_tempfile surplus))))
(terpri)
