;; Global variables that external code reads, and those that all documents share.

;; The value of a variable by name: what is shared under that name, else this document's. nil for a name
;; that is no variable's.
(defun ryv_get_var (name / symbol)
  (cond
    ((bb-get name))
    ((= (type (setq symbol (vl-catch-all-apply 'read (list name)))) 'SYM)
      (eval symbol))))

(defun ryp-share (name value)
  (set (read name) value)
  (bb-set name value))

;; A path with "/" between its parts, as package code joins names to it.
(defun ryp-slashes (path)
  (ryp-replace path "\\" "/"))

(setq GBL_kq_usr (strcat (ryp-slashes (profile-folder)) "/")
      GBL_QSave_accept 0
      GBL_SELECTED_DWGS nil)

;; Folders that project files name by %SL_DIR%, %KQ_DIR%, %DS_DIR% and %PF_DIR%.
(setq GBL_kq_BaseLibs (c:kq_getenv "KQ_BASELIBS")
      GBL_KQ_DOCSETKQBASE (c:kq_getenv "KQ_DOCSETKQBASE")
      GBL_KQ_DOCSETBASE (c:kq_getenv "KQ_DOCSETBASE")
      GBL_KQ_BASEINSTALL (c:kq_getenv "KQ_BASEINSTALL"))

;; How component tags use installation and location codes: see (ryp-take-tag-format). Kept from the
;; documents that were open before this one.
(foreach name
    '("GBL_kq_tagloc_format_instloc_into_tag" "GBL_kq_tagloc_redundant_instloc_suppress"
      "GBL_kq_combined_tagloc_prefix")
    (set (read name) (cond ((bb-get name)) (0))))
