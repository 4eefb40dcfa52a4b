;; Work that needs the full package: what was asked for is printed, with the drawings that it concerns.

;; Prints the request and the paths; T.
(defun ryp-request (what paths)
  (ryp-tell "request" (list what (itoa (length paths))))
  (foreach path paths
    (ryp-print (strcat "  " (ryp-shown-path path))))
  T)

;; The same for the selected drawings, or all drawings of the project.
(defun ryp-request-selected (what / selected project)
  (setq selected (ryp-take-selection))
  (if (setq project (ryp-project))
    (ryp-request what
      (mapcar 'ryp-drawing-file (ryp-chosen-drawings selected (ryp-project-drawings project))))))

(defun c:ryv_prnt_proj (unused1 unused2)
  (ryp-request-selected "plot"))

(defun c:RYPUBLISH ()
  (ryp-request-selected "publish"))

(defun c:kq_bump ()
  (ryp-request-selected "bump"))

(defun c:kq_iec_tag_freshen ()
  (ryp-request-selected "refresh tags"))

;; Another application has changed components that are linked with the current drawing. One without a file
;; cannot be found again later.
(defun RYMtUpdateComponent ()
  (apply (if (= (getvar "DWGTITLED") 1) 'ryp-update-later 'ryp-request)
    (list "update components" (list (doc-name)))))
