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
