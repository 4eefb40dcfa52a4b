;; The current document.

;; Takes the settings of the current document's drawing again; T, or nil when it has no settings block.
(defun c:kq_reread_dwg_params ()
  (ryp-forget-locations)
  (if (setq GBL_kq_dwg_params (ryp-with-current-drawing 'ryp-settings)) T))

;; Saves the current document, under a name that is asked for when it has none; GBL_QSave_accept is 1 then,
;; 0 when it was not saved.
(defun c:kq_9_do_qsave (/ path)
  (setq GBL_QSave_accept
    (if (cond
          ((ryp-document-has-file) (doc-save))
          ((setq path (choose-file 5003 (ryp-message "save-drawing" nil) (c:kq_getenv "KQ_PROJ") ".dwg" T))
            (doc-save-as path)))
      1
      0))
  (= GBL_QSave_accept 1))

;; Whether the current document has a file; one that was never saved has only a name.
(defun ryp-document-has-file ()
  (caddr (assoc (doc-current) (doc-list))))

;; Forgets which menu was chosen last.
(defun c:kq_menu_clear_kqmenu2use ()
  (ryp-share "GBL_kq_menu2use" nil)
  T)
