;; Drawing files of blocks.

;; The full path of a block's drawing file, with "/" between its parts: in the folders of KQ_LIB (with ";"
;; between them), else on the search path; nil when there is none.
(defun kq_fio_does_block_exist_disk (block / file found)
  (setq file (strcat block ".dwg"))
  (foreach folder (vl-remove "" (ryp-split (c:kq_getenv "KQ_LIB") ";"))
    (if (and (null found) (file-exists (path-combine folder file)))
      (setq found (path-combine folder file))))
  (if (or found (setq found (findfile file)))
    (ryp-slashes found)))

;; Tells the user that a block's file was not found.
(defun kq_fio_block_path_failed_msg (block)
  (alert (ryp-message "block-missing" (list block)))
  T)
