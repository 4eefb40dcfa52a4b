;; Global variables that external code reads, and those that all documents share.

;; The value of a variable by name: this document's own when it has one, else what all documents share under
;; that name. nil for a name that is no variable's. (The names of these variables are out of the way of others.)
(defun ryv_get_var (ryp-name / ryp-symbol)
  (if (= (type (setq ryp-symbol (vl-catch-all-apply 'read (list ryp-name)))) 'SYM)
    (cond ((eval ryp-symbol)) ((bb-get ryp-name)))))

;; Gives all documents a value. It takes the place of this document's own; a document that has set one itself
;; keeps that until it is set to nil there, or the document shares one.
(defun ryp-share (name value)
  (set (read name) nil)
  (bb-set name value))

;; A path with "/" between its parts, as package code joins names to it.
(defun ryp-slashes (path)
  (ryp-replace path "\\" "/"))

;; A path as other programs write it. What is none, as the name of a document without a file, stays as it is.
(defun ryp-shown-path (path)
  (if (wcmatch path "\\*,/*,?:*") (path-native path) path))

(setq GBL_kq_usr (strcat (ryp-slashes (profile-folder)) "/")
      GBL_QSave_accept 0
      GBL_SELECTED_DWGS nil)

;; Folders that project files name by %SL_DIR%, %KQ_DIR%, %DS_DIR% and %PF_DIR%.
(setq GBL_kq_BaseLibs (c:kq_getenv "KQ_BASELIBS")
      GBL_KQ_DOCSETKQBASE (c:kq_getenv "KQ_DOCSETKQBASE")
      GBL_KQ_DOCSETBASE (c:kq_getenv "KQ_DOCSETBASE")
      GBL_KQ_BASEINSTALL (c:kq_getenv "KQ_BASEINSTALL"))

;; How component tags use installation and location codes: see (ryp-take-tag-format). They are shared, and so
;; no document has values of its own to begin with.
(foreach name
    '("GBL_kq_tagloc_format_instloc_into_tag" "GBL_kq_tagloc_redundant_instloc_suppress"
      "GBL_kq_combined_tagloc_prefix")
    (if (null (bb-get name)) (bb-set name 0)))
