;; Updates of drawings that wait until the user runs them. They lie in the task file of the active project,
;; which is there as long as any wait: the project manager looks for it, and hears when it comes and goes.
;; A line is WHAT=PATH.

(setq ryp-task-mark "; Updates that wait for c:kq_upd_pending")

;; Beside the project, where the project manager expects it: the name in capitals.
(defun ryp-task-file (project)
  (path-combine (path-folder project) (strcat (strcase (ryp-project-name project)) "_update.mdb")))

;; The waiting updates of a project, ((WHAT . PATH) ...).
(defun ryp-tasks (project)
  (ryp-table (ryp-task-file project)))

;; Whether the task file is missing or of this package; nil, with the reason printed, for one that another
;; program made.
(defun ryp-owns-tasks (project / file)
  (setq file (ryp-task-file project))
  (cond
    ((not (file-exists file)) T)
    ((equal (car (ryp-lines file)) ryp-task-mark) T)
    (T (ryp-tell "pending-foreign" (list (path-native file))))))

;; T, or nil with the reason printed. The file goes with the last update.
(defun ryp-write-tasks (project tasks / file)
  (setq file (ryp-task-file project))
  (cond
    (tasks
      (ryp-write-lines file
        (cons ryp-task-mark (mapcar '(lambda (task) (strcat (car task) "=" (cdr task))) tasks)) "\n"))
    ((or (not (file-exists file)) (vl-file-delete file)) T)
    (T (ryp-tell "not-written" (list (path-native file))))))

;; Lets an update of drawings wait; each waits once. Without an active project it is printed as a request.
(defun ryp-update-later (what paths / project tasks)
  (cond
    ((null (setq project (ryp-active-project))) (ryp-request what paths))
    ((ryp-owns-tasks project)
      (setq tasks (reverse (ryp-tasks project)))
      (foreach path paths
        (if (not (member (cons what path) tasks))
          (setq tasks (cons (cons what path) tasks))))
      (if (ryp-write-tasks project (reverse tasks))
        (progn
          (ryp-tell "pending-kept" (list what (itoa (length paths))))
          T)))))

;; Asks which of the waiting updates to run, or to forget; all when none is chosen. T, or nil.
(defun c:kq_upd_pending (unused / project tasks)
  (ryp-take-selection)
  (cond
    ((null (setq project (ryp-active-project))) (ryp-tell "no-project" nil))
    ((not (ryp-owns-tasks project)) nil)
    ((setq tasks (ryp-tasks project)) (ryp-ask-for-tasks project tasks))
    (T (ryp-tell "no-pending" nil))))

;; The user may take long, so the file is read again before it is written.
(defun ryp-ask-for-tasks (project tasks / answers names chosen)
  (setq answers
    (ryp-ask "pending_updates" "pending"
      (list (ryp-list "updates" "pending-updates" (mapcar 'ryp-shown-task tasks))
            (ryp-choice "action" "pending-action" "run" '("run" "forget")))))
  (if answers
    (progn
      (setq names (ryp-answer answers "updates")
            chosen (if names
                     (vl-remove-if-not '(lambda (task) (member (ryp-shown-task task) names)) tasks)
                     tasks))
      (if (= (ryp-answer answers "action") "run")
        (ryp-run-tasks chosen))
      (ryp-write-tasks project
        (vl-remove-if '(lambda (task) (member task chosen)) (ryp-tasks project))))))

(defun ryp-shown-task (task)
  (strcat (car task) ": " (ryp-shown-path (cdr task))))

;; One request for all drawings of a kind of update.
(defun ryp-run-tasks (tasks)
  (foreach what (ryp-distinct (mapcar 'car tasks))
    (ryp-request what
      (mapcar 'cdr (vl-remove-if-not '(lambda (task) (= (car task) what)) tasks)))))
