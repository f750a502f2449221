CE:2
CE:-1.5
