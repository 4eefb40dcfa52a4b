;; Whether the files of a project are free, as the project manager knows it.

;; Who holds a drawing; nil when it is free or the project manager is not there.
(defun kqupda_chkdwglockstatus_internal (path / holder)
  (if (boundp 'ryv_getdwgwholocked)
    (setq holder (ryv_getdwgwholocked path)))
  (if (/= holder "") holder))

;; Of a list of drawing paths: ((PATH HOLDER) ...) of those that somebody holds.
(defun kqupda_chkdwglockstatus (paths / holder held)
  (foreach path paths
    (if (setq holder (kqupda_chkdwglockstatus_internal path))
      (setq held (cons (list path holder) held))))
  (reverse held))

;; The files that belong to a project and have to go along when it is copied.
(defun kq_cpyprj_chk4_related_files (project)
  (cdr (ryp-companions project)))

;; The lock check: whether a set of files may be worked on now. (T FILE ...) with those that this call has
;; locked; nil, with the reason printed and nothing locked, when somebody else works on one of them. `kind` is
;; 1 at every caller; `looks` is 1 when drawings are looked at only, 0 when they are to be changed: then they
;; are locked as project files are.
(defun kqupda_check_and_lock (files kind looks / outcome locked)
  (if (ryp-can-lock)
    (progn
      (setq outcome "free")
      (while (and files outcome)
        (if (= (setq outcome (ryp-check-file (car files) looks)) "locked")
          (setq locked (cons (car files) locked)))
        (setq files (cdr files)))
      (if outcome
        (cons T (reverse locked))
        (kqupda_unlock locked)))
    (ryp-tell "no-lock-check" nil)))

;; Unlocks what the check has locked; files that are not locked are passed over. nil.
(defun kqupda_unlock (files)
  (if (ryp-can-lock)
    (foreach file files
      (ryv_virtuallockproject file 0)))
  nil)

;; Locks are the project manager's, which is not always there.
(defun ryp-can-lock ()
  (and
    (boundp 'ryv_virtuallockproject)
    (boundp 'ryv_getprojectlockstatus)
    (boundp 'ryv_getprojectwholocked)
    (boundp 'ryv_getdwglockstatus)
    (boundp 'ryv_getdwgwholocked)))

(defun ryp-is-project (file)
  (ryp-ends (strcase file) ".KQP"))

;; "locked" when this locks the file, another text when it may be worked on as it is, nil when it may not.
(defun ryp-check-file (file looks)
  (if (ryp-is-project file)
    (ryp-check-project file)
    (ryp-check-drawing file looks)))

;; Of the states of a file: 0 cannot be told, 1 is free, 2 the user's own, 3 somebody else's, 5 and 7 protected, 6 missing.
(defun ryp-check-project (file / state)
  (setq state (ryv_getprojectlockstatus file))
  (cond
    ((= state 2) "own")
    ((/= state 1) (ryp-refuse file state (ryv_getprojectwholocked file)))
    (T (ryp-lock file))))

;; A project may name drawings that are not there, and these are in nobody's way. One that is looked at only
;; is not locked: a lock is an open file, and a project has thousands of drawings.
(defun ryp-check-drawing (file looks / state)
  (setq state (ryv_getdwglockstatus file))
  (cond
    ((member state '(2 6)) "free")
    ((and (= looks 1) (member state '(0 1 5 7))) "free")
    ((= state 1) (ryp-lock file))
    (T (ryp-refuse file state (ryv_getdwgwholocked file)))))

(defun ryp-lock (file)
  (if (= (ryv_virtuallockproject file 1) 1)
    "locked"
    (ryp-tell "lock-failed" (list (path-native file)))))

;; Says why a file may not be worked on; nil.
(defun ryp-refuse (file state reason)
  (ryp-tell
    (cond
      ((null reason) "lock-unknown")
      ((= state 3) "lock-held")
      ("lock-refused"))
    (list (path-native file) reason)))
