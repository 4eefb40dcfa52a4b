;; Environment, variables, replaceable values, messages, and the profile's own files in front of the package's.
(defun show (value)
  (prin1 value)
  (terpri))

(defun write-file (name lines / stream)
  (setq stream (open (path-combine (profile-folder) name) "w"))
  (foreach line lines
    (write-line line stream))
  (close stream))
(write-file "environment.txt" '("; own" "KQ_PNL=./panels" "KQ_MENU =" "KQ_PROJ= \\p=q "))
(write-file "replaceable.txt" '("OWN=50% off" "SL_DIR=never"))
(write-file "messages.txt" '("no-project=Kein Projekt" "CFG041=Format (%F%N)"))
(setq RYP_ENVIRONMENT nil) ; as in a document that is opened now

(show (= (c:kq_getenv "KQ_PNL") (path-combine (profile-folder) "panels")))
(show (mapcar 'c:kq_getenv '("kq_menu" "KQ_PROJ" "RYP_TEST" "NO_SUCH_NAME")))
(show (path-name (c:kq_getenv "KQ_LIB")))
(show (mapcar 'ryv_get_var
  '("GBL_kq_combined_tagloc_prefix" "GBL_QSave_accept" "NO_SUCH_NAME" "name" "symbol" "(quit)" "" "\"" "12")))
(setq GBL_kq_combined_tagloc_prefix "0")
(show (ryv_get_var "GBL_kq_combined_tagloc_prefix"))
(show (= GBL_kq_usr (strcat (ryp-slashes (profile-folder)) "/")))

(setq GBL_kq_BaseLibs "D:\\Libs" GBL_KQ_DOCSETBASE "")
(foreach text '("%SL_DIR%\\a;%SL_DIR%\\b" "%sl_dir%\\a" "%OWN%%" "100%SL_DIR%" "%NO%SL_DIR%" "%DS_DIR%" "%" "")
  (show (kq_1_luk4_replaceable_substitution text)))

(foreach call
    '(("CFG041" nil "default") ("CFG999" nil "default") ("CFG999" nil nil)
      ("x" ("a%2" "b") "%1-%2-%3-%%1%") ("no-project" ("a") nil))
  (show (apply 'c:kq_msg call)))
(show (c:kq_tb))
(show (mapcar 'kq_proja_cat_legit '("A-1" "" "  " "a*" "a?" "a\"b")))
(show (kq_fio_does_block_exist_disk "no such block"))
(show (= (path-name (kq_fio_does_block_exist_disk "KQ_M")) "KQ_M.dwg"))
