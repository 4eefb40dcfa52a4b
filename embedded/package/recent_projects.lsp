;; The list of recent projects: "recent.txt" in the profile folder, a line "STATE PATH" for each, newest
;; first. STATE is 2 for the one that was active last and 0 for the others.

(defun ryp-recent-file ()
  (path-combine (profile-folder) "recent.txt"))

;; ((STATE . PATH) ...); lines of another kind are skipped.
(defun ryp-recent-projects (/ entries)
  (foreach line (ryp-lines (ryp-recent-file))
    (if (wcmatch line "[02] ?*")
      (setq entries (cons (cons (substr line 1 1) (path-full (substr line 3))) entries))))
  (reverse entries))

;; Puts a project in front, as the active one; 30 are kept.
(defun ryp-remember-project (path / lines)
  (setq lines (list (strcat "2 " (path-native path))))
  (foreach entry (ryp-recent-projects)
    (if (and (not (ryp-same (cdr entry) path)) (< (length lines) 30))
      (setq lines (cons (strcat "0 " (path-native (cdr entry))) lines))))
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
