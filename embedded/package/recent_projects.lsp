;; The list of recent projects: "recent.txt" in the profile folder, a line "STATE PATH" for each, newest
;; first. STATE is 2 for the one that was active last, 1 for one that is open besides, and 0 for others.

(defun ryp-recent-file ()
  (path-combine (profile-folder) "recent.txt"))

;; ((STATE . PATH) ...); lines of another kind are skipped. A project whose file is gone is not open.
(defun ryp-recent-projects (/ entries path)
  (foreach line (ryp-lines (ryp-recent-file))
    (if (wcmatch line "[012] ?*")
      (setq path (path-full (substr line 3))
            entries (cons (cons (if (file-exists path) (substr line 1 1) "0") path) entries))))
  (reverse entries))

;; Puts a project in front, as the active one; the one that was active stays open.
(defun ryp-remember-project (path)
  (ryp-write-recent
    (cons (cons "2" path)
      (mapcar
        '(lambda (entry) (if (= (car entry) "2") (cons "1" (cdr entry)) entry))
        (vl-remove-if '(lambda (entry) (ryp-same (cdr entry) path)) (ryp-recent-projects))))))

;; A project is no longer open; it keeps its place.
(defun ryp-remember-closed (path)
  (ryp-write-recent
    (mapcar
      '(lambda (entry) (if (ryp-same (cdr entry) path) (cons "0" (cdr entry)) entry))
      (ryp-recent-projects))))

;; Writes the file; 30 projects are kept.
(defun ryp-write-recent (entries / lines)
  (foreach entry entries
    (if (< (length lines) 30)
      (setq lines (cons (strcat (car entry) " " (path-native (cdr entry))) lines))))
  (ryp-write-lines (ryp-recent-file) (reverse lines) "\n"))

;; Five lists: the paths, three lists of texts that are empty, and the states; nil when there is no
;; project.
(defun c:kq_get_recent_prj_lst (/ entries blanks)
  (if (setq entries (ryp-recent-projects))
    (progn
      (setq blanks (mapcar '(lambda (entry) "") entries))
      (list (mapcar 'cdr entries) blanks blanks blanks (mapcar 'car entries)))))

;; Asks for one of the recent projects; its path, or nil.
(defun c:ryv_proj_recent (/ paths answers)
  (setq paths (mapcar 'path-native (mapcar 'cdr (ryp-recent-projects))))
  (cond
    ((null paths)
      (ryp-tell "no-recent" nil))
    ((setq answers
        (ryp-ask "recent_project" "recent" (list (ryp-choice "project" "recent-project" (car paths) paths))))
      (path-full (ryp-answer answers "project")))))
