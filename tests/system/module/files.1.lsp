;; Files, settings, the list of recent projects, task dialogs and the temporary drawing.
(load (strcat (getenv "HERE") "/steps.lsp"))
(setq sheet "pump-station/01 Cover Sheet.dwg")

;; A source that is missing is looked for along the search path, and so is a target without a folder.
(rows '((ryv_copy_file sheet "pump-station/Copy.dwg") (ryv_copy_file sheet "pump-station/Copy.dwg")
        (ryv_copy_file "pump-station/Power/10 Main Supply.dwg" "pump-station/Copy.dwg")
        (ryv_copy_file (path-full sheet) (path-native (path-full "pump-station/Copy 2.dwg")))
        (ryv_copy_file "none/KQ_M.dwg" "pump-station/Block.dwg")
        (ryv_copy_file "none/none.dwg" "pump-station/None.dwg")
        (ryv_copy_file "pump-station" "pump-station/Folder.dwg")
        (ryv_copy_file sheet "none/Beside.dwg") (ryv_copy_file sheet "Beside.dwg")
        (ryv_copy_file "pump-station/Read-only.dwg" "pump-station/Free.dwg")
        (ryv_getdwgwholocked (path-full "pump-station/Read-only.dwg"))
        (ryv_getdwglockstatus (path-full "pump-station/Read-only.dwg"))
        (ryv_getdwglockstatus (path-full "pump-station/Free.dwg"))
        (path-relative (profile-folder) (findfile "Beside.dwg"))))
(rows '((ryv_delete_file "pump-station/Copy.dwg") (ryv_delete_file "pump-station/Copy.dwg")
        (ryv_delete_file (path-full "pump-station/Copy 2.dwg")) (ryv_delete_file "pump-station")
        (ryv_delete_file "none/none.dwg") (ryv_delete_file "none/Beside.dwg") (findfile "Beside.dwg")))

;; Settings of the package in the registry.
(rows '((ryv_getelecregsetting "Catalogue" "Language") (ryv_setelecregsetting "Catalogue" "Language" "żółw; \"x\"\\")
        (ryv_getelecregsetting "Catalogue" "Language") (ryv_getelecregsetting "Catalogue" "language")
        (ryv_getelecregsetting "Catalogue" "None") (ryv_setelecregsetting "Catalogue" "Empty" "")
        (ryv_getelecregsetting "CATALOGUE" "Empty") (ryv_setelecregsetting "" "Root" "r")))

;; The list of recent projects: a new one comes first, one that is known keeps its place, "X" drops it.
(defun listed (/ stream line)
  (setq stream (open (path-combine (profile-folder) "LastProj.fil") "r"))
  (while (setq line (read-line stream))
    (princ line)
    (terpri))
  (close stream))
(rows '((ryv_updateLastProjectFile "/p/a.kqp" "1" '("a" nil "b" nil 7))
        (ryv_updateLastProjectFile "C:\\p\\b.kqp" "2") (ryv_updateLastProjectFile "\\P\\A.KQP" "2")
        (ryv_updateLastProjectFile "/p/c.kqp" "0" "no list") (ryv_updateLastProjectFile "/p/c.kqp" "X")
        (ryv_updateLastProjectFile "/p/d.kqp" "0" '("a" 7)) (ryv_updateLastProjectFile "" "0")))
(listed)

;; Variables are filled in by name; of several values the last one counts, and reading ends at what is no pair.
(rows '((ryv_taskdialog "RyvPageMan.SubfolderNotMoved" '(("Subfolders" "first") ("Subfolders" . "second") ("" "x")))
        (ryv_taskdialog "RyvPageMan.MoveSubfoldersAfterSorting")
        (ryv_taskdialog "RyvPageMan.MoveSubfoldersAfterSorting" nil)
        (ryv_taskdialog "RyvPageMan.FlattenStructure" '("no pair" ("Name" "x")))
        (ryv_taskdialog "RyvPageMan.RenameDrawingNoFileName") (ryv_taskdialog "RyvPageMan.None")))

(rows '((ryv_beginwaitcursor) (getvar "WAITCURSOR") (ryv_endwaitcursor) (getvar "WAITCURSOR")
        (ryv_croverridedlg '("1" "2" "3" "4" "5" "6" "7" "8" "9" "10" "11" "12" "13" "14" "15" "16"))))

;; The temporary drawing is gone when the host has ended.
(setq name (ryv_circ_tempfile))
(ryv_copy_file sheet name)
(setq stream (open "temporary.txt" "w"))
(princ name stream)
(close stream)
(prin1 (list (wcmatch (path-name name) "{*-*-*-*-*}.dwg") (file-exists name)))
(terpri)
