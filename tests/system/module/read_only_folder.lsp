(load (strcat (getenv "HERE") "/steps.lsp"))
(setq project (path-full "pump-station/Pump Station.kqp"))
(rows '((ryv_getprojectlockstatus project) (ryv_getdwglockstatus project) (ryv_getprojectwholocked project)
        (ryv_getdwgwholocked project) (ryv_virtuallockproject project 1)))
