;; The active project, as all documents know it.

;; The path of the active project; nil when there is none.
(defun ryp-active-project ()
  (cond
    ((if (boundp 'ryv_getactiveproject) (ryv_getactiveproject)))
    ((bb-get "ryp-active-project"))))

;; (PATH . CONTENT) of the active project, or nil with the reason printed.
(defun ryp-project (/ path content)
  (cond
    ((null (setq path (ryp-active-project)))
      (ryp-tell "no-project" nil))
    ((setq content (project-read path))
      (cons path content))))

;; Makes a project the active one of all documents; T, or nil when there is no such file.
(defun ryv_makeproj_active (path)
  (setq path (path-full path))
  (if (file-exists path)
    (ryp-activate-project path)
    (ryp-tell "no-such-project" (list (path-native path)))))

(defun ryp-activate-project (path)
  (if (/= path (bb-get "ryp-active-project"))
    (ryp-remember-project path))
  (bb-set "ryp-active-project" path)
  (ryp-forget-locations)
  (c:ryv_kqp_reread)
  T)

;; A project was closed, or removed from those that are open; T.
(defun ryv_proj_closed (path)
  (setq path (path-full path))
  (ryp-remember-closed path)
  (if (ryp-same path (cond ((bb-get "ryp-active-project")) ("")))
    (bb-set "ryp-active-project" nil))
  (ryp-forget-locations)
  T)

;; The name of a project: that of its file without the extension.
(defun ryp-project-name (path)
  (setq path (path-name path))
  (if (ryp-ends (strcase path) ".KQP")
    (substr path 1 (- (strlen path) 4))
    path))

;; A file beside the project, named as the project with something else behind it.
(defun ryp-beside-project (path ending)
  (path-combine (path-folder path) (strcat (ryp-project-name path) ending)))

;; Takes what LISP keeps of the active project from its file again; T, or nil when there is none or a
;; re-read is under way: reading makes the project manager act, which may ask for one more.
(defun c:ryv_kqp_reread ()
  (if (and (null ryp-rereading) (ryp-active-project))
    (ryp-reread)))

;; The local variable is what a call within this one finds, and it ends with the call, however that ends.
(defun ryp-reread (/ ryp-rereading content)
  (setq ryp-rereading T)
  (ryp-forget-locations)
  (if (setq content (project-read (ryp-active-project)))
    (progn
      (ryp-take-tag-format (cdr (assoc 5 (ryp-part content "settings"))))
      T)))

;; What the component tag format says about installation (%I) and location (%L) codes, for all documents:
;; whether it holds them, whether it begins with them, and whether codes equal to the drawing's are left
;; out.
(defun ryp-take-tag-format (tag-format / holds)
  (if (null tag-format)
    (setq tag-format "%F%N"))
  (setq holds (wcmatch tag-format "*%I*,*%L*"))
  (ryp-share "GBL_kq_tagloc_format_instloc_into_tag" (if holds 1 0))
  (ryp-share "GBL_kq_combined_tagloc_prefix" (if (wcmatch tag-format "%I*,%L*") 1 0))
  (ryp-share "GBL_kq_tagloc_redundant_instloc_suppress"
    (if (and holds (= (c:kq_getenv "KQ_TAGLOC_SUPPRESS") "1")) 1 0)))

;; A project was opened or written: what was collected from its drawings is out of date.
(defun c:ryv_update_dwg_lst ()
  (ryp-forget-locations)
  T)

;; LISP has written a project's file.
(defun ryp-project-changed (path)
  (if (boundp 'ryv_rereadproject)
    (ryv_rereadproject path))
  (c:ryv_update_dwg_lst))

;; Asks for a new project's file and makes it, empty; the path, which always ends in ".kqp", or nil.
(defun c:ryv_proj_new (mode / path)
  (setq path (choose-file 5001 (ryp-message "new-project" nil) (c:kq_getenv "KQ_PROJ") ".kqp" "new"))
  (if (and path (not (ryp-ends (strcase path) ".KQP")))
    (setq path (strcat path ".kqp")))
  (cond
    ((null path) nil)
    ((file-exists path) (ryp-tell "exists" (list (path-native path))))
    ((ryp-write-lines path '("") "\n") path)))

;; Prints what the project is.
(defun c:kq_proj_properties_display (/ project)
  (if (setq project (ryp-project))
    (ryp-print-properties (car project) (cdr project))))

(defun ryp-print-properties (path content / drawings)
  (setq drawings (ryp-drawings (ryp-entries path content)))
  (ryp-tell "project" (list (ryp-project-name path) (path-native path)))
  (foreach text (ryp-part content "descriptions")
    (ryp-print (strcat "  " text)))
  (ryp-tell "project-content"
    (list (itoa (length drawings)) (itoa (length (ryp-part content "settings")))))
  T)

(defun c:kq_help_proj_settings ()
  (alert (ryp-message "project-settings" nil))
  T)

;; Shows where a project's symbols are looked for.
(defun c:ryv_proj_symbol_lib_dlg (mode path / content)
  (if (setq content (project-read path))
    (progn
      (ryp-tell "libraries" (list (ryp-project-name path)))
      (foreach setting (ryp-part content "misc")
        (if (<= 1 (car setting) 3)
          (ryp-print (strcat "  " (ryp-shown-folders (kq_1_luk4_replaceable_substitution (cdr setting)))))))
      T)))

(defun ryp-shown-folders (folders)
  (ryp-join (mapcar 'ryp-shown-path (ryp-split folders ";")) ";"))
