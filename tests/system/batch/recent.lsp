;; Recent projects, the active project and what follows from its tag format.
(defun show (value)
  (prin1 value)
  (terpri))

(show (c:kq_get_recent_prj_lst))
(show (c:ryv_proj_recent))
(show (list (ryp-active-project) (c:ryv_kqp_reread)))
(setq stream (open "zweites Gebäude.kqp" "w"))
(write-line "?[5]%L%F%N" stream)
(close stream)

(defun names (lists)
  (cons (mapcar 'path-name (car lists)) (cdr lists)))
(defun tag-format ()
  (show (mapcar 'ryv_get_var
    '("GBL_kq_tagloc_format_instloc_into_tag" "GBL_kq_combined_tagloc_prefix"
      "GBL_kq_tagloc_redundant_instloc_suppress"))))

(ryv_makeproj_active "pump-station/Pump Station.kqp")
(tag-format)
(ryv_makeproj_active "zweites Gebäude.kqp")
(ryv_makeproj_active "ZWEITES gebäude.kqp")
(tag-format)
(show (names (c:kq_get_recent_prj_lst)))
(show (path-name (c:ryv_proj_recent)))
(show (c:ryv_proj_recent))

;; What was closed, or is gone, is not open; one that is not there is not taken.
(show (ryv_makeproj_active "none.kqp"))
(show (path-name (ryp-active-project)))
(defun states ()
  (show (mapcar '(lambda (path state) (strcat state " " (path-name path)))
    (car (c:kq_get_recent_prj_lst)) (nth 4 (c:kq_get_recent_prj_lst)))))
(foreach name '("a.kqp" "b.kqp" "c.kqp")
  (close (open name "w"))
  (ryv_makeproj_active name))
(ryv_proj_closed "B.KQP")
(vl-file-delete "a.kqp")
(states)
(show (list (ryv_proj_closed "c.kqp") (ryp-active-project)))
(states)
(repeat 30
  (setq name (strcat "p" (itoa (setq number (1+ (cond (number) (0))))) ".kqp"))
  (close (open name "w"))
  (ryv_makeproj_active name))
(show (list (length (car (c:kq_get_recent_prj_lst))) (path-name (last (car (c:kq_get_recent_prj_lst))))))
(ryv_makeproj_active "ZWEITES gebäude.kqp")

;; A re-read within a re-read does nothing, and the next one works.
(setq reads 0)
(setq read-before project-read)
(defun project-read (path)
  (setq reads (1+ reads))
  (c:ryv_kqp_reread)
  (read-before path))
(show (list (c:ryv_kqp_reread) reads (c:ryv_kqp_reread) reads))
(setq project-read read-before)

;; Another document knows the same project.
(doc-open "pump-station/01 Cover Sheet.dwg")
(show (path-name (ryp-active-project)))

(show (path-name (c:ryv_proj_new 0)))
(show (c:ryv_proj_new 0))
(show (c:ryv_proj_new 0))
(show (ryp-part (project-read "made.kqp") "lines"))

;; A document's own value counts there, and the shared one elsewhere, until the document shares one anew.
(setq GBL_kq_combined_tagloc_prefix "0")
(tag-format)
(send-string "(princ (strcat \"elsewhere \" (itoa (ryv_get_var \"GBL_kq_combined_tagloc_prefix\")) \"\n\"))\n")
(c:ryv_kqp_reread)
(tag-format)
